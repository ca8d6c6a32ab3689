#pragma once

#include "library/controls/label.h"
#include "library/controls/panel.h"
#include "library/followups/follow_up_list.h"

namespace ebtq {

/// The reminders that are due on the business date and have no result yet: the user's own, and everybody's of
/// a wider range. It shows what the last refresh found; when to refresh is the host's affair.
class YjTx : public FollowUpList
{
    Q_OBJECT

public:
    explicit YjTx(Desktop &desktop);

    [[nodiscard]] qzPanel &Panel1() { return m_panel; }
    [[nodiscard]] Label &lblCaption() { return m_caption; }

protected:
    SqlText statement() override;
    void rowsLoaded() override;
    QString printSettings() override;

private:
    qzPanel &m_panel;
    Label &m_caption;
};

} // namespace ebtq
