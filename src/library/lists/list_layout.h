#pragma once

#include "library/frame/module_part.h"

namespace ebtq {

class VSFlexGrid;

/// The layout of a list module in the file that its host gives.
///
/// The fields of the form come back once, when the module opens and before it loads for the first time: the
/// host asks again after every load, and by then fields hold what the person has typed or emptied since. From
/// then on only the list's shape is restored. What a person changes about the columns is written at once.
class ListLayout : public QObject, private ModulePart
{
    Q_OBJECT

public:
    /// `list` is the module's main grid; both outlive the layout.
    ListLayout(Module &module, VSFlexGrid &list);

    /// What IReportUI_DoGetFormStatus does.
    void get(const QString &file);
    /// What IReportUI_DoSaveFormStatus does. False when the file could not be written, or holds a layout that
    /// could not be read when it was asked for: then what the screen shows is not the person's.
    bool save(const QString &file);
    /// A load begins: fields are not restored any more.
    void beginLoad() { m_isFormRestored = true; }
    /// The module ends; its next Init opens it anew.
    void clear();

Q_SIGNALS:
    /// A change of the columns could not be kept.
    void notSaved(const QString &file);

private:
    void watchColumns();
    void saveColumns();

    Module &m_module;
    VSFlexGrid &m_list;
    bool m_isFormRestored = false;
    bool m_wasUnread = false;
};

} // namespace ebtq
