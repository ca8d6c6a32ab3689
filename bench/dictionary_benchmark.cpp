#include "agency.h"
#include "benchmarks.h"
#include "editor_widgets.h"
#include "library/dictionaries/pdm_lpzd.h"
#include "measure.h"
#include "statement_trace.h"

#include <QJsonObject>
#include <QStandardItemModel>

#include <iostream>
#include <stdexcept>

namespace ebtq::bench {

namespace {

constexpr int blocksOfBuilding = 2000;
constexpr int firstId = 1'000'000;

/// A small agency with many buildings over its districts, the first one with many blocks.
Options sized(Options options)
{
    options.rows = 100;
    options.customers = 10;
    options.followUps = 10;
    return options;
}

void addBuildings(db::Connection &connection, int count)
{
    const RowBlock districts = connection.query(QStringLiteral("select 地区ID from pdmdq where 是否明细=1"));
    connection.begin();
    for (int number = 1; number <= count; ++number)
        connection.execute(QStringLiteral("insert into pdmlpzd(楼盘ID,楼盘编号,楼盘名称,地区ID) "
                                          "values(%1,'T%1','天河花园%1号',%2)")
                               .arg(firstId + number)
                               .arg(districts.value(number % districts.rowCount(), 0).toInt()));
    for (int number = 1; number <= blocksOfBuilding; ++number)
        connection.execute(
            QStringLiteral(
                "insert into pdmdz(栋座ID,栋座编号,栋座名称,总楼层,楼盘ID) values(%1,'B%1','%1栋',18,%2)")
                .arg(firstId + number)
                .arg(firstId + 1));
    connection.commit();
}

/// The module over the agency; what it complains of ends the measurement.
struct BenchedDictionary
{
    explicit BenchedDictionary(Agency &agency)
        : form(agency.desktop())
        , screen(form.TV())
    {
        QObject::connect(&form, &PdmLpzd::ErrMessage, &form,
                         [](const QString &text) { throw std::runtime_error(text.toStdString()); });
        form.IFormUI_Init(agency.app(), 0, 0);
        refresh();
    }
    void refresh()
    {
        form.IFormUI_Refresh();
        screen.settle();
    }
    void editBlocks(int round)
    {
        form.IFormUI_FileEdit();
        qzGrid &blocks = form.blocks();
        for (int row = blocks.FixedRows(); row < blocks.Rows(); ++row)
            blocks.edit(row, PdmLpzd::BlockName, QStringLiteral("第%1栋 %2").arg(row).arg(round));
    }

    PdmLpzd form;
    ShownTree screen;
};

/// What a program without a tree would fill with the rows: an item for each node, below its parent's.
void fillModel(QStandardItemModel &model, TreeView &tree)
{
    QHash<const Node *, QStandardItem *> items;
    for (int index = 1; index <= tree.nodes().Count(); ++index) {
        const Node &node = *tree.nodes().Item(index);
        auto *item = new QStandardItem(node.Text());
        item->setData(node.Tag(), Qt::UserRole);
        QStandardItem *parent = items.value(node.Parent(), model.invisibleRootItem());
        parent->appendRow(item);
        items.insert(&node, item);
    }
}

void runAll(sqlite3 *handle, const std::vector<QByteArray> &texts)
{
    for (const QByteArray &text : texts)
        runBare(handle, text);
}

QJsonObject refreshing(Agency &agency, BenchedDictionary &benched, int rounds)
{
    sqlite3 *handle = agency.connection().handle();
    const std::vector<QByteArray> texts = statementsOf(handle, [&] { benched.refresh(); });
    std::unique_ptr<QStandardItemModel> model;
    const auto times = medians({{"bare",
                                 [&] {
                                     runAll(handle, texts);
                                     fillModel(*model, benched.form.TV());
                                 },
                                 [&] { model = std::make_unique<QStandardItemModel>(); }},
                                {"ours", [&] { benched.refresh(); }}},
                               rounds);
    return {{QStringLiteral("nodes"), benched.form.TV().nodes().Count()},
            {QStringLiteral("bare_ms"), rounded(times[0])},
            {QStringLiteral("ours_ms"), rounded(times[1])},
            {QStringLiteral("ratio"), rounded(times[1] / times[0])}};
}

QJsonObject saving(Agency &agency, BenchedDictionary &benched, int rounds)
{
    sqlite3 *handle = agency.connection().handle();
    int round = 0;
    Node *building = benched.form.TV().nodes().Item(QStringLiteral("lT%1").arg(firstId + 1));
    benched.form.TV().click(*building);
    benched.editBlocks(++round);
    const std::vector<QByteArray> texts = statementsOf(handle, [&] { benched.form.IFormUI_FileSave(); });
    const auto times =
        medians({{"bare", [&] { runAll(handle, texts); }},
                 {"ours", [&] { benched.form.IFormUI_FileSave(); }, [&] { benched.editBlocks(++round); }}},
                rounds);
    return {{QStringLiteral("statements"), static_cast<double>(texts.size())},
            {QStringLiteral("bare_ms"), rounded(times[0])},
            {QStringLiteral("ours_ms"), rounded(times[1])},
            {QStringLiteral("ratio"), rounded(times[1] / times[0])}};
}

} // namespace

int dictionaryBenchmark(const Options &options)
{
    Agency agency(sized(options));
    addBuildings(agency.database(), options.buildings);
    BenchedDictionary benched(agency);
    const QJsonObject refreshed = refreshing(agency, benched, options.rounds);
    const QJsonObject saved = saving(agency, benched, options.rounds);
    print({{QStringLiteral("benchmark"), QStringLiteral("dictionary")},
           {QStringLiteral("refresh"), refreshed},
           {QStringLiteral("save"), saved}});
    return 0;
}

} // namespace ebtq::bench
