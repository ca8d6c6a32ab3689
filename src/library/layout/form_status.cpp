#include "library/layout/form_status.h"

#include "contracts/null_conv.h"
#include "library/controls/control_collection.h"
#include "library/controls/flex_grid.h"
#include "library/layout/grid_layout.h"
#include "library/layout/ini_store.h"
#include "library/layout/layout_file.h"

#include <QMetaMethod>
#include <QMetaProperty>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

QString formSection()
{
    return u"Form"_s;
}

/// A property of a control that is kept as text under its key with a suffix.
struct KeptProperty
{
    QStringView typeName;
    QStringView suffix;
    const char *property;
    bool emptyIsNothing; ///< an empty text leaves the control as it is
};

/// In the order of restoring: a rule may empty a field's value with each change of its text. The properties
/// of trees and lists select the entry that they name and scroll to it.
constexpr KeptProperty keptProperties[] = {
    {u"qzTxt_S", u"_Text", "Text", false},     {u"qzTxt_S", u"_Value", "Value", false},
    {u"CheckBox", u"", "Value", false},        {u"OptionButton", u"", "Value", false},
    {u"TextBox", u"", "Text", false},          {u"ComboBox", u"", "Text", false},
    {u"XPCombo", u"", "Text", false},          {u"DTPicker", u"", "Value", false},
    {u"gcDTP", u"", "Value", false},           {u"TreeView", u"", "SelectedText", true},
    {u"ListView", u"", "SelectedIndex", true}, {u"Splitter", u"_Left", "Left", true},
};

QString keyOf(const Control &control)
{
    const int index = ControlIndex(control);
    const QString number = index == -1 ? QString() : u"_%1"_s.arg(index);
    return control.TypeName().toUpper() + u'_' + control.Name() + number;
}

QString widthKey(const Control &grid, int column)
{
    return keyOf(grid) + u"_Col%1"_s.arg(column);
}

void restoreProperties(const IniStore &store, Control &control)
{
    for (const KeptProperty &kept : keptProperties) {
        const QString key = keyOf(control) + kept.suffix.toString();
        if (kept.typeName != control.TypeName() || !store.contains(formSection(), key))
            continue;
        const QString text = store.GetString(formSection(), key, {});
        if (!text.isEmpty() || !kept.emptyIsNothing)
            control.setProperty(kept.property, text);
    }
}

void saveProperties(IniStore &store, const Control &control)
{
    for (const KeptProperty &kept : keptProperties) {
        if (kept.typeName == control.TypeName())
            store.SetString(formSection(), keyOf(control) + kept.suffix.toString(),
                            NullConv::ToText(control.property(kept.property)));
    }
}

void restoreWidths(const IniStore &store, VSFlexGrid &grid)
{
    for (int column = 0; column < grid.Cols(); ++column)
        grid.setColWidth(column, store.GetInt(formSection(), widthKey(grid, column), grid.ColWidth(column)));
}

void saveWidths(IniStore &store, const VSFlexGrid &grid)
{
    for (int column = 0; column < grid.Cols(); ++column)
        store.SetInt(formSection(), widthKey(grid, column), grid.ColWidth(column));
}

bool isListGrid(const Control &control)
{
    return control.TypeName() == u"VSFlexGrid";
}

} // namespace

void restoreForm(const QString &file, bool onlyColWidth, const ControlCollection &controls, HostApp &app)
{
    IniStore store;
    store.setFileName(file);
    for (const auto &control : controls) {
        if (control->isKept())
            restoreProperties(store, *control);
        auto *grid = qobject_cast<VSFlexGrid *>(control.get());
        if (grid && isListGrid(*grid))
            GridRestore(file, *grid, onlyColWidth, app);
        else if (grid)
            restoreWidths(store, *grid);
    }
}

void watchForm(const ControlCollection &controls,
               const std::function<void(Control &, const QMetaMethod &)> &watch)
{
    for (const auto &control : controls) {
        for (const KeptProperty &kept : keptProperties) {
            const int index = control->metaObject()->indexOfProperty(kept.property);
            if (kept.typeName == control->TypeName() && control->isKept() && index >= 0)
                watch(*control, control->metaObject()->property(index).notifySignal());
        }
    }
}

bool saveForm(const QString &file, bool onlyColWidth, const ControlCollection &controls)
{
    IniStore store;
    store.setFileName(file);
    for (const auto &control : controls) {
        if (control->isKept())
            saveProperties(store, *control);
        const auto *grid = qobject_cast<const VSFlexGrid *>(control.get());
        if (grid && isListGrid(*grid))
            saveGrid(store, *grid, onlyColWidth);
        else if (grid)
            saveWidths(store, *grid);
    }
    return store.save();
}

bool saveGrids(const QString &file, const ControlCollection &controls)
{
    IniStore store;
    store.setFileName(file);
    for (const auto &control : controls) {
        const auto *grid = qobject_cast<const VSFlexGrid *>(control.get());
        if (grid && isListGrid(*grid))
            saveGrid(store, *grid, false);
    }
    return store.save();
}

} // namespace ebtq
