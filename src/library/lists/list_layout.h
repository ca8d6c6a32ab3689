#pragma once

#include "library/frame/module_part.h"

namespace ebtq {

class VSFlexGrid;

/// The layout of a list module in the file that its host gives.
///
/// The fields of the form are restored once, and only if unchanged since the module opened: the host asks
/// again after every load, when they may hold what the user has typed or emptied since. From then on only the
/// list's shape is restored. The user's changes of columns are written at once.
class ListLayout : public QObject, private ModulePart
{
    Q_OBJECT

public:
    /// `list` is the module's main grid; both outlive the layout.
    ListLayout(Module &module, VSFlexGrid &list);

    /// The module is opened: from now on changes of its form are the person's.
    void begin();
    /// What IReportUI_DoGetFormStatus does.
    void get(const QString &file);
    /// What IReportUI_DoSaveFormStatus does. False when the file could not be written, or holds a layout that
    /// could not be read before: then the screen does not show the user's layout and must not replace it.
    bool save(const QString &file);
    /// Sums anew after rows were added, changed or removed.
    void recount();
    /// The module ends; its next Init opens it anew.
    void clear();

Q_SIGNALS:
    /// A change of the columns could not be kept.
    void notSaved(const QString &file);

private Q_SLOTS:
    void touch() { m_isFormKnown = true; }

private:
    void watchColumns();
    void saveColumns();

    Module &m_module;
    VSFlexGrid &m_list;
    bool m_isFormKnown = false; ///< restored, or changed by the person
    bool m_wasUnread = false;
};

} // namespace ebtq
