#include "screens/controls/choice_popup.h"

#include "screens/controls/popup.h"

#include <QKeyEvent>

#include <algorithm>

namespace ebtq {

namespace {

constexpr int shownEntries = 12;

} // namespace

ChoicePopup::ChoicePopup(const QStringList &texts, const QString &current, QWidget *field)
    : QListWidget(field)
{
    setWindowFlags(Qt::Popup);
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("ChoicePopup"));
    addItems(texts);
    setCurrentRow(std::max(0, static_cast<int>(texts.indexOf(current))));
    connect(this, &QListWidget::itemClicked, this, &ChoicePopup::pick);
    const int entries = std::clamp(count(), 1, shownEntries);
    resize(std::max(field->width(), sizeHintForColumn(0) + 2 * frameWidth() + 16),
           entries * std::max(sizeHintForRow(0), 1) + 2 * frameWidth());
    showPopupAt(*this, *field);
}

void ChoicePopup::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        pick();
        break;
    case Qt::Key_Escape:
        close();
        break;
    default:
        QListWidget::keyPressEvent(event);
    }
}

void ChoicePopup::pick()
{
    const int position = currentRow();
    close();
    if (position >= 0)
        Q_EMIT picked(position);
}

} // namespace ebtq
