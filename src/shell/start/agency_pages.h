#pragma once

#include "shell/start/start_page.h"

class QLabel;
class QListWidget;
class QPlainTextEdit;

namespace ebtq::shell {

/// Where a new agency is kept, its name and its first department.
class AgencyPage : public StartPage
{
    Q_OBJECT

public:
    AgencyPage(StartDraft &draft, const QString &folder);
    void initializePage() override;
    [[nodiscard]] int nextId() const override { return StaffPageId; }

protected:
    void takeOver() override;

private:
    QLineEdit *m_path;
    QWidget *m_pathField;
    QLineEdit *m_name;
    QLineEdit *m_department;
    QFormLayout *m_form;
};

/// The administrator, with a password typed twice.
class StaffPage : public StartPage
{
    Q_OBJECT

public:
    explicit StaffPage(StartDraft &draft);
    [[nodiscard]] int nextId() const override { return DistrictsPageId; }

protected:
    void takeOver() override;

private:
    void showStrength(const QString &password);

    QLineEdit *m_name;
    QLineEdit *m_password;
    QLineEdit *m_again;
    QLabel *m_strength;
};

/// City and districts as indented lines.
class DistrictsPage : public StartPage
{
    Q_OBJECT

public:
    explicit DistrictsPage(StartDraft &draft);
    [[nodiscard]] int nextId() const override { return ListsPageId; }

protected:
    void takeOver() override;

private:
    void count();

    QPlainTextEdit *m_lines;
    QLabel *m_count;
};

/// The standard lists, ticked by kind.
class ListsPage : public StartPage
{
    Q_OBJECT

public:
    explicit ListsPage(StartDraft &draft);
    void initializePage() override;
    [[nodiscard]] int nextId() const override { return FinishPageId; }

protected:
    void takeOver() override;

private:
    void tickAll(Qt::CheckState state);

    host::StandardLists m_lists;
    QListWidget *m_kinds;
};

} // namespace ebtq::shell
