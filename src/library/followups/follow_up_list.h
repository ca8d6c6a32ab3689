#pragma once

#include "library/controls/grid_find.h"
#include "library/lists/list_module.h"

namespace ebtq {

/// The base of the lists of follow-ups, which are read, searched and printed, and never written. They have no
/// tool bar of their own: the host offers their commands.
class FollowUpList : public ListModule
{
    Q_OBJECT

public:
    /// Selects the nearest row with a text, from the current one on. `condition` is the text, or a list of
    /// the text and a GridFind::Direction. False for an empty text and when no row holds it; each search
    /// reports its result by Message.
    bool IReportUI_Find(const QVariant &condition) override;
    bool IReportUI_FindNext() override;
    /// Hides the rows without the text; an empty one shows all again.
    bool IReportUI_Filter(const QVariant &condition) override;
    bool IReportUI_DoPrint() override { return SelfPrint(true, false); }
    bool IReportUI_PrintPreview() override { return SelfPrint(false, false); }
    bool IReportUI_PrintSetup() override { return SelfPrint(false, true); }

Q_SIGNALS:
    void Message(const QString &psMsg);
    void ErrMessage(const QString &psMsg, int plLevel, const QString &psTitle);
    void Detaile(int plCzID, int plID);
    void VsMouseDown(short &Button, short &shift, float &X, float &Y);
    void RefreshGetGridStatus();

protected:
    FollowUpList(const QString &name, Desktop &desktop, FailureNames failures, const ListTables &tables);

    void raiseMessage(const QString &text) override { Q_EMIT Message(text); }
    void raiseRefreshGetGridStatus() override { Q_EMIT RefreshGetGridStatus(); }
    void raiseError(const QString &message, int level, const QString &title) override
    {
        Q_EMIT ErrMessage(message, level, title);
    }

private:
    bool tell(const GridFind::Hit &hit);

    GridFind m_find;
};

} // namespace ebtq
