#include "screens/controls/control_binding.h"

#include "library/controls/control.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLabel>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

/// A caption as it is read aloud: without the mnemonic's mark and the colon.
QString spokenName(const Control &control)
{
    QString name = control.Caption().trimmed();
    const qsizetype mnemonic = name.indexOf(u"(&"_s);
    if (mnemonic >= 0)
        name.remove(mnemonic, 4);
    while (name.endsWith(u':') || name.endsWith(u'：'))
        name.chop(1);
    return name.isEmpty() ? widgetName(control) : name;
}

/// A widget that was never shown or hidden by hand is left to its parent: showing it would open a window.
void setVisibleWithParent(QWidget &widget, bool visible)
{
    if (!visible)
        widget.hide();
    else if (widget.testAttribute(Qt::WA_WState_ExplicitShowHide) && widget.isHidden())
        widget.show();
}

/// Qt presses a button by its letter 100 ms late, so that it is seen down. The keys of a quick typist would
/// overtake it: Escape would take back the text that a save was to write.
bool pressAtOnce(QObject *watched, const QShortcutEvent &shortcut)
{
    auto *button = qobject_cast<QAbstractButton *>(watched);
    if (!button || shortcut.isAmbiguous())
        return false;
    if (button->isCheckable() && (button->focusPolicy() & Qt::ClickFocus))
        button->setFocus(Qt::ShortcutFocusReason);
    button->click();
    return true;
}

/// A command's letter pressed once too often reaches the form that the command has opened. Qt would type it,
/// and Alt+N pressed twice would replace the number of the new listing by "n".
class AltLetters : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Shortcut)
            return pressAtOnce(watched, static_cast<const QShortcutEvent &>(*event));
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto &key = static_cast<const QKeyEvent &>(*event);
        const bool isLetter =
            key.modifiers() == Qt::AltModifier && !key.text().isEmpty() && key.text().front().isPrint();
        if (isLetter)
            event->ignore();
        return isLetter;
    }
};

} // namespace

QString widgetName(const Control &control)
{
    return control.Index() < 0 ? control.Name() : control.Name() + u'_' + QString::number(control.Index());
}

QString withMnemonic(const QString &caption, QChar mnemonic)
{
    return mnemonic.isNull() ? caption : u"%1(&%2)"_s.arg(caption, mnemonic);
}

void bindControl(const Control &control, QWidget &widget)
{
    widget.setObjectName(widgetName(control));
    widget.setAccessibleName(spokenName(control));
    // A view may have given a better name than the caption: it stays while the caption does.
    auto follow = [&control, &widget, spoken = spokenName(control)]() mutable {
        widget.setEnabled(control.Enabled());
        widget.setToolTip(control.ToolTipText());
        if (const QString name = spokenName(control); spoken != name)
            widget.setAccessibleName(spoken = name);
        setVisibleWithParent(widget, control.Visible());
    };
    QObject::connect(&control, &Control::stateChanged, &widget, follow);
    QObject::connect(&control, &Control::focusRequested, &widget,
                     [&widget] { widget.setFocus(Qt::OtherFocusReason); });
    widget.installEventFilter(new AltLetters(&widget));
    follow();
}

QLabel *makeCaption(const Control &control, QWidget &field, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setProperty("kind", u"caption"_s);
    label->setBuddy(&field);
    const auto follow = [&control, label] {
        label->setText(control.Caption().trimmed()); // blanks of a caption made room where no layout did
        label->setToolTip(control.ToolTipText());
        setVisibleWithParent(*label, control.Visible());
    };
    QObject::connect(&control, &Control::stateChanged, label, follow);
    follow();
    return label;
}

} // namespace ebtq
