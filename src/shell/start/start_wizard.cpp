#include "shell/start/start_wizard.h"

#include "shell/start/agency_pages.h"
#include "shell/start/finish_page.h"
#include "shell/start/place_pages.h"

#include <QAbstractButton>
#include <QStyle>

namespace ebtq::shell {

namespace {

constexpr QSize wizardSize(640, 520);

} // namespace

StartWizard::StartWizard(const QString &folder, const QStringList &recent, const QString &failure)
{
    setWindowTitle(QStringLiteral("房源管理"));
    setWizardStyle(QWizard::ClassicStyle);
    setOption(QWizard::NoBackButtonOnStartPage);
    setOption(QWizard::NoCancelButtonOnLastPage, false);
    auto *choice = new ChoicePage(m_draft, recent, folder);
    if (!failure.isEmpty())
        choice->showError(failure);
    setPage(ChoicePageId, choice);
    setPage(FilePageId, new FilePage(m_draft));
    setPage(ServerPageId, new ServerPage(m_draft));
    setPage(AgencyPageId, new AgencyPage(m_draft, folder));
    setPage(StaffPageId, new StaffPage(m_draft));
    setPage(DistrictsPageId, new DistrictsPage(m_draft));
    setPage(ListsPageId, new ListsPage(m_draft));
    setPage(FinishPageId, new FinishPage(m_draft));
    nameButtons();
    resize(wizardSize);
}

bool StartWizard::beginWithUpgrade(const QString &location)
{
    try {
        m_draft.chooseExisting(location);
    } catch (const std::exception &) {
        return false; // why it cannot be opened is known already
    }
    if (!m_draft.upgrades())
        return false;
    m_draft.way = StartDraft::Way::File;
    setStartId(FinishPageId);
    return true;
}

void StartWizard::nameButtons()
{
    struct ButtonName
    {
        QWizard::WizardButton which;
        QStringView objectName;
        QStringView text;
        bool isPrimary;
    };
    constexpr ButtonName names[] = {
        {QWizard::BackButton, u"back", u"上一步(&K)", false},
        {QWizard::NextButton, u"next", u"下一步(&X)", true},
        {QWizard::FinishButton, u"finish", u"完成(&W)", true},
        {QWizard::CancelButton, u"cancel", u"取消(&C)", false},
    };
    for (const ButtonName &name : names) {
        setButtonText(name.which, name.text.toString());
        QAbstractButton &button = *this->button(name.which);
        button.setObjectName(name.objectName);
        button.setProperty("kind", name.isPrimary ? QStringLiteral("primary") : QString());
        button.style()->polish(&button); // it was polished when it was made
    }
}

} // namespace ebtq::shell
