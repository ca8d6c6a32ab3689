#include "agents/agent.h"

#include "agents/workplace.h"
#include "host/demo/demo.h"
#include "host/module_ids.h"
#include "library/customers/frm_kh.h"
#include "library/customers/frm_kh_fields.h"
#include "library/customers/khxx.h"
#include "library/customers/khxx_tables.h"
#include "library/followups/frm_gj.h"
#include "library/followups/yj_tx.h"
#include "library/listings/fcxx.h"
#include "library/listings/fcxx_tables.h"
#include "library/listings/frm_fx.h"

#include <random>

namespace ebtq::bench {

namespace {

constexpr int newestListings = 8;

/// What the server's answer did not reach is told by these words.
constexpr QStringView unknownOutcome = u"不能确定";

} // namespace

struct Agent::Private
{
    Private(const QString &database, int number)
        : name(QStringLiteral("第%1号").arg(number))
        , place(database, number)
        , random(static_cast<unsigned>(number))
        , filter(number)
    {
        QObject::connect(&list, &Fcxx::ErrMessage, [this](const QString &text) { failures.append(text); });
        list.IReportUI_Init(place.app(), place.moduleId());
        QObject::connect(&customers, &khxx::ErrMessage,
                         [this](const QString &text) { failures.append(text); });
        customers.IReportUI_Init(place.app(), host::CustomerModule);
        QObject::connect(customers.mFrmKh(), &frmKh::ReturnData,
                         [this](const QString &id) { confirmed = id; });
        QObject::connect(&reminders, &YjTx::ErrMessage,
                         [this](const QString &text) { failures.append(text); });
        reminders.IReportUI_Init(place.app(), host::ReminderModule);
        QObject::connect(list.mFrmFx(), &FrmFx::ReturnData, [this](const QString &id) { confirmed = id; });
        QObject::connect(list.mFrmGj(), &FrmGj::ReturnData, [this](const QString &id) { confirmed = id; });
    }

    void setFilter();
    void fillNewListing(const FrmFx &form) const;
    [[nodiscard]] bool goToListing();
    [[nodiscard]] QString cell(int column) { return cellOf(list, column); }
    [[nodiscard]] static QString cellOf(RecordList &list, int column)
    {
        return list.VS().TextMatrix(list.VS().Row(), column);
    }
    template<class Fill> void save(Save::Kind kind, const QString &command, EditorForm &form, Fill fill);
    void note(Save save);

    QString name;
    Workplace place;
    std::minstd_rand random;
    int filter;
    Fcxx list{place};
    khxx customers{place};
    YjTx reminders{place};
    QString confirmed; ///< key of the row that was saved last
    QList<Save> ledger;
    QStringList failures;
};

void makeAgency(const QString &database, int listings)
{
    host::DemoOptions options;
    options.listings = listings;
    options.followUps = listings;
    options.passwordCost = host::PasswordCost::lowest();
    host::writeDemo(*db::Connection::open(database, db::Connection::Missing::IsCreated), options);
}

Agent::Agent(const QString &database, int number)
    : d(std::make_unique<Private>(database, number))
{}

Agent::~Agent() = default;

const QList<Save> &Agent::ledger() const
{
    return d->ledger;
}

const QStringList &Agent::failures() const
{
    return d->failures;
}

bool Agent::openList()
{
    d->setFilter();
    return d->list.IReportUI_Refresh();
}

/// One after another: the building and the district that he works in, his own listings, the newest of all.
void Agent::Private::setFilter()
{
    const int turn = filter++ % 4;
    const Workplace::Building &building = place.building();
    list.qzTxt(7).setText(turn == 0 ? building.name : QString());
    list.qzTxt(0).setText(turn == 1 ? building.district : QString());
    list.qzTxt(5).setText(turn == 2 ? place.agentName() : QString());
    list.qzTxt(5).setValue(turn == 2 ? QVariant(place.agentId()) : QVariant());
    list.Chk(0).setValue(turn == 1 ? 1 : 0);
    list.XPCmb().setText(turn == 3 ? QStringLiteral("三天内") : QStringLiteral("全部"));
}

/// Who writes all follow-ups and changes on the newest listings shares them with others.
bool Agent::Private::goToListing()
{
    VSFlexGrid &grid = list.VS();
    const int rows = std::min(grid.Rows() - grid.FixedRows(), newestListings);
    if (rows > 0)
        grid.setRow(grid.FixedRows() + static_cast<int>(random() % static_cast<unsigned>(rows)));
    return rows > 0;
}

template<class Fill>
void Agent::Private::save(Save::Kind kind, const QString &command, EditorForm &form, Fill fill)
{
    Save save{.kind = kind, .text = QStringLiteral("%1 %2").arg(name).arg(ledger.size())};
    if (kind == Save::ChangedListing)
        save.key = cell(ListingKey);
    else if (kind == Save::FollowUp)
        save.listing = cell(ListingKey);
    place.atForm([&] {
        fill(save.text);
        confirmed.clear();
        place.forgetWhatWasTold();
        save.begin = Save::Clock::now();
        form.Cmd(0).press();
        save.end = Save::Clock::now();
        note(save);
    });
    RecordList &opened = kind == Save::NewCustomer ? static_cast<RecordList &>(customers) : list;
    opened.NavToolbar1().press(command);
}

void Agent::Private::note(Save save)
{
    save.told = place.told();
    if (!confirmed.isEmpty()) {
        save.outcome = Outcome::Confirmed;
        save.key = confirmed;
        if (save.kind == Save::NewListing)
            save.number = cell(ListingNumber);
        else if (save.kind == Save::NewCustomer)
            save.number = cellOf(customers, CustomerCode);
    } else if (save.told.contains(unknownOutcome)) {
        save.outcome = Outcome::Unknown;
    }
    ledger.append(save);
}

void Agent::saveListing()
{
    const FrmFx &form = *d->list.mFrmFx();
    d->save(Save::NewListing, QStringLiteral("new"), *d->list.mFrmFx(), [&](const QString &text) {
        d->fillNewListing(form);
        form.qzFcTxt(51).setText(text);
        form.Txt(1).setText(text);
    });
}

void Agent::saveCustomer()
{
    const frmKh &form = *d->customers.mFrmKh();
    d->save(Save::NewCustomer, QStringLiteral("new"), *d->customers.mFrmKh(), [&](const QString &text) {
        form.qzTxt(CustomerNumber::Name).setText(text);
        form.qzTxt(CustomerNumber::Telephone).setText(QStringLiteral("138****2046"));
        form.qzTxt(CustomerNumber::PriceTo).setText(QStringLiteral("120"));
        form.Txt().setText(text);
    });
}

void Agent::Private::fillNewListing(const FrmFx &form) const
{
    const Workplace::Building &building = place.building();
    const auto chosen = [&](int number, const QString &text, int key) {
        form.qzFcTxt(number).setText(text);
        form.qzFcTxt(number).setValue(key);
    };
    chosen(1, building.district, building.districtId);
    chosen(6, building.name, building.id);
    chosen(3, QStringLiteral("A1"), 1);
    chosen(13, place.agentName(), place.agentId());
    struct Typed
    {
        int number;
        QStringView text;
    };
    static constexpr Typed typedTexts[] = {{8, u"1203"}, {14, u"12"},     {10, u"30"},         {7, u"89.5"},
                                           {25, u"268"}, {50, u"陈先生"}, {53, u"138****2046"}};
    for (const Typed &each : typedTexts)
        form.qzFcTxt(each.number).type(each.text.toString());
    // These are looked up when the field is left.
    static constexpr Typed lookedUp[] = {{20, u"住宅"}, {17, u"南"}, {23, u"出售"}, {24, u"有效"}};
    for (const Typed &each : lookedUp) {
        form.qzFcTxt(each.number).type(each.text.toString());
        form.qzFcTxt(each.number).check();
    }
}

void Agent::changeListing()
{
    if (!d->goToListing())
        return;
    const FrmFx &form = *d->list.mFrmFx();
    d->save(Save::ChangedListing, QStringLiteral("edit"), *d->list.mFrmFx(), [&](const QString &text) {
        form.qzFcTxt(51).setText(text);
        form.Txt(1).setText(text);
    });
}

void Agent::writeFollowUp()
{
    if (!d->goToListing())
        return;
    const FrmGj &form = *d->list.mFrmGj();
    d->save(Save::FollowUp, QStringLiteral("gj"), *d->list.mFrmGj(),
            [&](const QString &text) { form.Txt().setText(text); });
}

void Agent::lookForReminders()
{
    d->reminders.IReportUI_Refresh();
}

} // namespace ebtq::bench
