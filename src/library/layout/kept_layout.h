#pragma once

#include <QDateTime>
#include <QString>

namespace ebtq {

class HostApp;
class VSFlexGrid;

/// The layout of a grid that is loaded with each step of the user: restored after each load as the rules
/// have it, at the cost of one look at the file's date while neither the file nor the rows ask for more.
class KeptLayout
{
public:
    /// Nothing without a file.
    void restore(const QString &file, VSFlexGrid &grid, HostApp &app);
    /// To be called when the grid was built anew.
    void forget() { m_restored = {}; }

private:
    struct State
    {
        QString file;
        QDateTime changed;
        qint64 size = -1;
        bool operator==(const State &) const = default;
    };
    [[nodiscard]] static State stateOf(const QString &file);

    State m_restored;
    bool m_isByRows = false;
};

} // namespace ebtq
