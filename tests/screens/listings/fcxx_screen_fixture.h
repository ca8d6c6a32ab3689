#pragma once

#include "host/demo/demo.h"
#include "host/host_fixture.h"
#include "library/listings/fcxx.h"
#include "screens/controls/flex_grid_view.h"
#include "screens/listings/fcxx_view.h"
#include "screens/support/screen.h"
#include "support/scripted_desktop.h"

namespace ebtq::test {

/// The list of listings on the screen, over the invented agency in memory.
class FcxxScreenTest : public ::testing::Test
{
protected:
    FcxxScreenTest(int listings, int customers, int followUps)
    {
        host::DemoOptions options;
        options.listings = listings;
        options.customers = customers;
        options.followUps = followUps;
        options.today = today;
        options.passwordCost = host::PasswordCost::lowest();
        host::writeDemo(*connection, options);
        app = std::make_unique<host::Application>(*connection,
                                                  host::signIn(*connection, u"演示"_qs, u"demo"_qs),
                                                  host::Settings{folder.path(), today}, panels);
        desktop.setNow(QDateTime(today, QTime(9, 0)));
        QObject::connect(&module, &Fcxx::Message, [this](const QString &text) { message = text; });
        QObject::connect(&module, &Fcxx::ErrMessage,
                         [this](const QString &text, int, const QString &) { errors.append(text); });
        EXPECT_TRUE(module.IReportUI_Init(*app, 101));
        view.resize(1112, 600);
        showActive(view);
        EXPECT_TRUE(module.IReportUI_Refresh());
        message.clear();
    }
    template<class T> [[nodiscard]] T &child(const QString &name) const { return test::child<T>(view, name); }
    [[nodiscard]] FlexGridView &table() const { return child<FlexGridView>(u"VS"_qs); }

    const QDate today{2026, 11, 22};
    std::unique_ptr<db::Connection> connection =
        db::Connection::open(u":memory:"_qs, db::Connection::Missing::IsCreated);
    QTemporaryDir folder;
    ScriptedPanels panels;
    std::unique_ptr<host::Application> app;
    ScriptedDesktop desktop;
    Fcxx module{desktop};
    FcxxView view{module, nullptr};
    QString message;
    QStringList errors;
};

} // namespace ebtq::test
