#pragma once

#include "shell/start/start_draft.h"

#include <QFormLayout>
#include <QWizardPage>

#include <functional>

class QLabel;
class QLineEdit;
class QVBoxLayout;

namespace ebtq::shell {

enum StartPageId : int {
    ChoicePageId,
    FilePageId,
    ServerPageId,
    AgencyPageId,
    StaffPageId,
    DistrictsPageId,
    ListsPageId,
    FinishPageId
};

/// A page of the start: what was typed goes into the draft when the page is left forward; what the draft
/// refuses is shown on the page, which then stays.
class StartPage : public QWizardPage
{
    Q_OBJECT

public:
    /// `draft` outlives the page.
    StartPage(StartDraft &draft, const QString &title, const QString &purpose);
    bool validatePage() override;
    void showError(const QString &text);

protected:
    /// Takes over what was typed. Throws an exception with a text for the user.
    virtual void takeOver() = 0;
    /// Runs `work` under a wait cursor; false when it failed, which is shown.
    bool attempt(const std::function<void()> &work);

    [[nodiscard]] StartDraft &draft() const { return m_draft; }
    [[nodiscard]] QVBoxLayout &column() const { return *m_column; }
    /// A form in the column, with captions as all forms have them.
    QFormLayout *addForm();

private:
    StartDraft &m_draft;
    QVBoxLayout *m_column;
    QLabel *m_error;
};

/// A line of explanation.
[[nodiscard]] QLabel *hintLabel(const QString &objectName, const QString &text = {});
/// What a refusal is shown in; hidden until there is one.
[[nodiscard]] QLabel *errorLabel();
[[nodiscard]] QString strengthText(host::Strength strength);
[[nodiscard]] QLineEdit *startField(const QString &objectName, const QString &text = {});

} // namespace ebtq::shell
