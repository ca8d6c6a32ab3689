#include "shell/tour/caption_walk.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTextDocument>

#include <algorithm>

namespace ebtq::shell {

namespace {

/// With mnemonics as those who take them show them: "(&S)" and "&S" are one letter.
QString withoutMnemonic(QString text)
{
    const qsizetype mark = text.indexOf(u'&');
    return mark >= 0 && mark + 1 < text.size() && text[mark + 1].isLetterOrNumber() ? text.remove(mark, 1)
                                                                                    : text;
}

QString shownText(const QLabel &label)
{
    QTextDocument document;
    const bool isMarkup = label.textFormat() != Qt::PlainText && Qt::mightBeRichText(label.text());
    isMarkup ? document.setHtml(label.text()) : document.setPlainText(label.text());
    const QString text = document.toPlainText();
    return label.buddy() ? withoutMnemonic(text) : text;
}

QStringList actionTexts(const QWidget &widget)
{
    QStringList result;
    for (const QAction *action : widget.actions())
        result.append(withoutMnemonic(action->text()));
    return result;
}

/// All words of a widget, as they are seen.
QStringList wordsOf(const QWidget &widget)
{
    QStringList words{widget.toolTip(), widget.accessibleName()};
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget))
        words += withoutMnemonic(button->text());
    else if (const auto *label = qobject_cast<const QLabel *>(&widget))
        words += shownText(*label);
    else if (const auto *group = qobject_cast<const QGroupBox *>(&widget))
        words += withoutMnemonic(group->title());
    else if (const auto *field = qobject_cast<const QLineEdit *>(&widget))
        words += field->placeholderText();
    else if (qobject_cast<const QMenu *>(&widget))
        words += actionTexts(widget);
    if (const auto *tabs = qobject_cast<const QTabBar *>(&widget)) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            words += withoutMnemonic(tabs->tabText(tab));
    }
    return words;
}

/// Parts of another widget have its name.
bool needsName(const QWidget &widget)
{
    const QWidget *parent = widget.parentWidget();
    const bool isCellEditor = parent && qobject_cast<const QAbstractItemView *>(parent->parentWidget());
    const bool isPart = widget.objectName().startsWith(QStringLiteral("qt_")) || isCellEditor ||
                        qobject_cast<const QComboBox *>(parent);
    return widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0 && !isPart &&
           !widget.focusProxy() && !qobject_cast<const QMenu *>(&widget);
}

bool hasName(const QWidget &widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(&widget);
    const bool isNamed = !widget.accessibleName().isEmpty() && widget.accessibleName() != widget.objectName();
    const auto captions = widget.window()->findChildren<QLabel *>();
    const bool isCaptioned = std::ranges::any_of(
        captions, [&](const QLabel *label) { return label->buddy() == &widget && !label->text().isEmpty(); });
    return isNamed || isCaptioned || (button && !button->text().isEmpty()) ||
           qobject_cast<const QTabBar *>(&widget);
}

QString nameOf(const QWidget &widget)
{
    return QStringLiteral("%1 %2").arg(QLatin1String(widget.metaObject()->className()), widget.objectName());
}

} // namespace

QStringList captionFaults(const QWidget &window)
{
    QStringList faults;
    QList<const QWidget *> widgets{&window};
    for (const QWidget *each : window.findChildren<QWidget *>())
        widgets.append(each);
    for (const QWidget *widget : widgets) {
        if (!widget->isVisible())
            continue;
        for (const QString &text : wordsOf(*widget)) {
            if (text.contains(QStringLiteral("(&")) || text.trimmed().contains(QStringLiteral("  ")))
                faults += QStringLiteral("%1：“%2”").arg(nameOf(*widget), text);
        }
        if (needsName(*widget) && !hasName(*widget))
            faults += QStringLiteral("%1：没有名称").arg(nameOf(*widget));
    }
    return faults;
}

} // namespace ebtq::shell
