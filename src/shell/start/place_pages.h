#pragma once

#include "shell/start/start_page.h"

class QButtonGroup;
class QLabel;
class QListWidget;
class QSpinBox;

namespace ebtq::shell {

/// How to begin: a new agency, a file, a server, the sample, or a database used lately.
class ChoicePage : public StartPage
{
    Q_OBJECT

public:
    ChoicePage(StartDraft &draft, const QStringList &recent, const QString &folder);
    [[nodiscard]] int nextId() const override;

protected:
    void takeOver() override;

private:
    void addRecent(const QStringList &recent);
    void unmarkWays();
    [[nodiscard]] QString chosenRecent() const;
    [[nodiscard]] StartDraft::Way chosenWay() const;

    QButtonGroup *m_ways;
    QListWidget *m_recent = nullptr;
    QString m_folder;
};

/// A database file that is there.
class FilePage : public StartPage
{
    Q_OBJECT

public:
    explicit FilePage(StartDraft &draft);
    void initializePage() override;
    [[nodiscard]] int nextId() const override;

protected:
    void takeOver() override;

private:
    QLineEdit *m_path;
};

/// A database on a server, by fields; the connection can be tried.
class ServerPage : public StartPage
{
    Q_OBJECT

public:
    explicit ServerPage(StartDraft &draft);
    void initializePage() override;
    [[nodiscard]] int nextId() const override;

protected:
    void takeOver() override;

private:
    void tryConnection();

    QLineEdit *m_host;
    QSpinBox *m_port;
    QLineEdit *m_base;
    QLineEdit *m_user;
    QLineEdit *m_password;
    QLabel *m_result;
};

/// A field for a file with a button that opens a dialog for it; `choose` gives empty when it is cancelled.
[[nodiscard]] QWidget *fileField(QLineEdit *path, std::function<QString(const QString &present)> choose);
[[nodiscard]] QString databaseFiles();

} // namespace ebtq::shell
