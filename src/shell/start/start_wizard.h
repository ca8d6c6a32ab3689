#pragma once

#include "shell/start/start_draft.h"

#include <QStringList>
#include <QWizard>

namespace ebtq::shell {

/// Asks for the database to work in, page by page, and makes it when it is not there yet. Accepted when it
/// can be opened.
class StartWizard : public QWizard
{
    Q_OBJECT

public:
    /// New files are proposed in `folder`; `recent` are databases used lately. `failure`, if any, is why the
    /// last one could not be opened.
    StartWizard(const QString &folder, const QStringList &recent, const QString &failure = {});

    /// Begins with the offer to upgrade this database; false when it is not one to be upgraded.
    bool beginWithUpgrade(const QString &location);
    [[nodiscard]] const StartDraft &draft() const { return m_draft; }

private:
    void nameButtons();

    StartDraft m_draft;
};

} // namespace ebtq::shell
