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
    /// Whether reminders of earlier days that have no result are listed too, from the next refresh on; off at
    /// first. The host of such a list asks the person.
    Q_PROPERTY(bool IncludesOverdue READ IncludesOverdue WRITE setIncludesOverdue)

public:
    explicit YjTx(Desktop &desktop);

    [[nodiscard]] bool IncludesOverdue() const { return m_includesOverdue; }
    void setIncludesOverdue(bool includes) { m_includesOverdue = includes; }

    [[nodiscard]] qzPanel &Panel1() { return m_panel; }
    [[nodiscard]] Label &lblCaption() { return m_caption; }

protected:
    SqlText statement() override;
    void rowsLoaded() override;
    QString printSettings() override;

private:
    qzPanel &m_panel;
    Label &m_caption;
    bool m_includesOverdue = false;
};

} // namespace ebtq
