#pragma once

#include <QWidget>

class QLabel;

namespace ebtq::shell {

/// The line below the window: what was said last, how many records are shown, what is not saved, whether
/// anything can be saved at all, and where the database lies.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    StatusLine(const QString &place, bool isReadOnly);

    /// An empty text takes no room.
    void setTexts(const QString &message, const QString &count, const QString &unsaved);

private:
    [[nodiscard]] QLabel *addLabel(const QString &objectName, const QString &text);

    QLabel *m_message;
    QLabel *m_unsaved;
    QLabel *m_count;
};

} // namespace ebtq::shell
