#include "screens/frame/editor_form_view.h"

#include "library/records/editor_form.h"
#include "screens/controls/button_view.h"
#include "screens/controls/control_binding.h"
#include "screens/controls/field_view.h"
#include "screens/controls/text_box_view.h"
#include "screens/look/look.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int textMargin = 6; ///< as the fields of one line have it

} // namespace

EditorFormView::EditorFormView(EditorForm &form, const QString &title, QWidget *parent)
    : QWidget(parent)
    , m_form(form)
    , m_title(title)
{
    setObjectName(form.name());
    followTitle();
    connect(&form, &EditorForm::titleChanged, this, &EditorFormView::followTitle);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 10, 16, 12);
    column->setSpacing(4);
    connect(&form, &EditorForm::unloaded, this, [this] {
        m_isUnloaded = true;
        close();
    });
}

void EditorFormView::followTitle()
{
    const QString number = m_form.recordNumber();
    setWindowTitle((number.isEmpty() ? m_title : m_title + u' ' + number) + u"[*]"_s); // * when modified
    setWindowModified(m_form.isDirty());
}

void EditorFormView::closeEvent(QCloseEvent *event)
{
    event->setAccepted(m_isUnloaded || m_form.mayClose());
}

QGroupBox *EditorFormView::addCard(const QString &title)
{
    QGroupBox *card = makeCard(title, this);
    layout()->addWidget(card);
    return card;
}

TextAreaView *EditorFormView::makeBox(TextBox &box, const QString &name, QWidget *parent)
{
    auto *view = new TextAreaView(box, parent);
    view->setAccessibleName(name);
    view->document()->setDocumentMargin(textMargin);
    return view;
}

QHBoxLayout *EditorFormView::addBottomRow()
{
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 8, 0, 0);
    row->setSpacing(10);
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
    return row;
}

void EditorFormView::addMove(QHBoxLayout &bottomRow, int button, Qt::Key key)
{
    auto *view = new ButtonView(m_form.Cmd(button), this);
    view->setFocusPolicy(Qt::TabFocus);
    bottomRow.addWidget(view);
    auto *shortcut = new QShortcut(QKeySequence(Qt::CTRL | key), this);
    view->setToolTip(shortcut->key().toString(QKeySequence::NativeText));
    connect(shortcut, &QShortcut::activated, &m_form.Cmd(button), &Button::press);
}

/// A click leaves the keyboard where it is, so that the field that is being filled in can refuse first.
void EditorFormView::addButtons(QHBoxLayout &bottomRow)
{
    bottomRow.addStretch(1);
    if (!m_form.Cmd(0).Enabled()) {
        auto *readOnly = new QLabel(u"只读"_s, this);
        readOnly->setObjectName(u"readOnly"_s);
        readOnly->setProperty("kind", u"title"_s);
        bottomRow.addWidget(readOnly);
    }
    auto *save = new ButtonView(m_form.Cmd(0), this);
    save->setProperty("kind", u"primary"_s);
    save->setGuard(&FieldView::checkFocused);
    auto *close = new ButtonView(m_form.Cmd(1), this);
    for (ButtonView *button : {save, close}) {
        button->setFocusPolicy(Qt::TabFocus);
        bottomRow.addWidget(button);
    }
}

void EditorFormView::beginWith(const Control &first)
{
    const Control &begin = first.Enabled() ? first : m_form.Cmd(1);
    QWidget *widget = findChild<QWidget *>(widgetName(begin));
    setFocusProxy(widget);
    widget->setFocus();
}

} // namespace ebtq
