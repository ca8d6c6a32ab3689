#include "screens/controls/calendar_popup.h"

#include "screens/controls/choice_popup.h"
#include "screens/support/screen.h"

#include <QApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

using namespace ebtq;
using namespace ebtq::test;

namespace {

TEST(CalendarPopup, KeysPickADayOrNone)
{
    QWidget field;
    showActive(field);
    struct Case
    {
        std::initializer_list<Qt::Key> keys;
        QDate picked;
    };
    const QDate preset(2026, 9, 30);
    const Case cases[] = {
        {{Qt::Key_Return}, preset},
        {{Qt::Key_Right, Qt::Key_Return}, QDate(2026, 10, 1)},
        {{Qt::Key_Up, Qt::Key_Return}, QDate(2026, 9, 23)},
        {{Qt::Key_Right, Qt::Key_Escape}, QDate()},
    };
    for (const Case &expected : cases) {
        QPointer<CalendarPopup> calendar = new CalendarPopup(preset, &field);
        QDate picked;
        QObject::connect(calendar, &CalendarPopup::picked, &field, [&](QDate day) { picked = day; });
        auto *days = calendar->findChild<QTableView *>();
        for (const Qt::Key key : expected.keys)
            QTest::keyClick(days, key);
        EXPECT_EQ(picked, expected.picked);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(calendar.isNull()) << "it goes when it is closed";
    }
}

TEST(Popups, StayOnTheScreen)
{
    QWidget window;
    const QRect screen = QApplication::primaryScreen()->availableGeometry();
    QWidget field(&window);
    field.resize(80, 24);
    window.resize(100, 40);
    for (const QPoint corner : {screen.topLeft(), screen.bottomRight() - QPoint(90, 40)}) {
        window.move(corner);
        showActive(window);
        const CalendarPopup *calendar = new CalendarPopup(QDate(2026, 1, 1), &field);
        const QRect place = calendar->frameGeometry();
        EXPECT_TRUE(screen.contains(place))
            << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height();
        delete calendar;
    }
}

TEST(ChoicePopup, PicksByKeyAndMouseOnce)
{
    QWidget field;
    showActive(field);
    const QStringList texts = {QStringLiteral("本人"), QStringLiteral("本部"), QStringLiteral("全部")};
    const auto open = [&](QSignalSpy *&spy) {
        auto *popup = new ChoicePopup(texts, QStringLiteral("本部"), &field);
        spy = new QSignalSpy(popup, &ChoicePopup::picked);
        spy->setParent(&field);
        return popup;
    };
    QSignalSpy *picked = nullptr;
    ChoicePopup *popup = open(picked);
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Return);
    ASSERT_EQ(picked->size(), 1);
    EXPECT_EQ(picked->at(0).at(0).toInt(), 2);

    popup = open(picked);
    QTest::mouseClick(popup->viewport(), Qt::LeftButton, {}, popup->visualItemRect(popup->item(0)).center());
    ASSERT_EQ(picked->size(), 1);
    EXPECT_EQ(picked->at(0).at(0).toInt(), 0);

    popup = open(picked);
    QTest::keyClick(popup, Qt::Key_Escape);
    EXPECT_FALSE(popup->isVisible());
    EXPECT_EQ(picked->size(), 0);

    const auto *empty = new ChoicePopup({}, QString(), &field);
    QTest::keyClick(const_cast<ChoicePopup *>(empty), Qt::Key_Return);
}

} // namespace
