#pragma once

#include "library/frame/desktop.h"

namespace ebtq::bench {

/// Nobody is there to be asked, and nothing is kept outside the database.
class NobodysDesktop : public Desktop
{
public:
    Answer messageBox(const QString &, const QString &, Icon, Buttons) override { return Answer::No; }
    std::optional<int> choose(const QString &, const QString &, const QStringList &) override { return {}; }
    std::optional<QString> inputBox(const QString &, const QString &, const QString &) override { return {}; }
    bool openDialog(FileDialog &) override { return false; }
    bool saveDialog(FileDialog &) override { return false; }
    QString popUpMenu(const QList<MenuItem> &) override { return {}; }
    void showModal(QObject &) override {}
    int shellExecute(const QString &, const QString &, const QString &, const QString &, int) override
    {
        return 0;
    }
    void setWaitCursor(bool) override {}
    [[nodiscard]] QDateTime now() const override { return QDateTime(QDate(2026, 11, 22), QTime(9, 0)); }
    QString tempFolder() override { return {}; }
    QString tempPath(const QString &, const QString &) override { return {}; }
    QString makeTempFile(const QString &) override { return {}; }
    bool pack(const QString &, const QString &) override { return false; }
    void unpack(const QString &, QIODevice &, qint64) override {}
    QByteArray newGuidBytes() override { return {}; }
};

} // namespace ebtq::bench
