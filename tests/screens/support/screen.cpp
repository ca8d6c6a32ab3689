#include "screens/support/screen.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace ebtq::test {

void showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

QString focusName()
{
    const QWidget *widget = QApplication::focusWidget();
    return widget ? widget->objectName() : QString();
}

namespace {

template<class... Kinds> bool isOneOf(const QWidget *widget)
{
    return (qobject_cast<const Kinds *>(widget) || ...);
}

} // namespace

qsizetype expectNothingIsCut(const QWidget &window, int linesOfABox)
{
    QList<QRect> places;
    for (const QWidget *leaf : window.findChildren<QWidget *>()) {
        if (!isOneOf<QLabel, QLineEdit, QAbstractButton, QComboBox, QPlainTextEdit>(leaf) ||
            !leaf->isVisible() || isOneOf<QLineEdit, QComboBox, QAbstractItemView>(leaf->parentWidget()))
            continue;
        const QRect place(leaf->mapTo(&window, QPoint()), leaf->size());
        const QSize needed = leaf->minimumSizeHint();
        const bool isBox = isOneOf<QPlainTextEdit>(leaf);
        const std::string name = (leaf->objectName() + u' ' + leaf->accessibleName()).toStdString();
        EXPECT_TRUE(window.rect().contains(place)) << name;
        EXPECT_GE(place.height(), isBox ? linesOfABox * leaf->fontMetrics().height() : needed.height())
            << name;
        EXPECT_TRUE(isBox || isOneOf<QLineEdit>(leaf) || place.width() >= needed.width()) << name;
        for (const QRect &other : places)
            EXPECT_FALSE(place.intersects(other)) << name;
        places.append(place);
    }
    return places.size();
}

void typeText(QWidget &widget, const QString &text)
{
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

WhenModal::WhenModal(std::function<void(QWidget &window)> answer)
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, answer = std::move(answer)] {
        QWidget *window = QApplication::activeModalWidget();
        if (!window || !window->isVisible())
            return;
        m_timer.stop();
        m_answered = true;
        answer(*window);
    });
    m_timer.start(0);
}

WhenModal::~WhenModal()
{
    EXPECT_TRUE(m_answered) << "no modal window came up";
}

RowBlock textBlock(std::initializer_list<std::initializer_list<std::string>> rows)
{
    RowBlock block(std::vector<Column>(rows.begin()->size()));
    for (const auto &row : rows)
        for (const std::string &cell : row)
            block.append(cell);
    block.finish();
    return block;
}

} // namespace ebtq::test
