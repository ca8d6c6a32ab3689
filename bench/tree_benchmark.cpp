#include "benchmarks.h"
#include "editor_widgets.h"
#include "library/controls/c_tree_view.h"
#include "measure.h"

#include <QJsonObject>
#include <QStandardItemModel>

namespace ebtq::bench {

namespace {

constexpr int buildingsOfDistrict = 100;
constexpr int partOf = 4; ///< what the time for a part of the nodes is compared with

struct Building
{
    QString key;
    QString text;
};

/// What a module has read before it fills a tree.
std::vector<Building> makeBuildings(int count)
{
    std::vector<Building> buildings;
    for (int number = 1; number <= count; ++number)
        buildings.push_back(
            {QStringLiteral("l%1").arg(number), QStringLiteral("%1 天河花园%1号").arg(number)});
    return buildings;
}

/// A bare model with the same texts and tags.
void fillStandardModel(QStandardItemModel &model, const std::vector<Building> &buildings)
{
    auto *root = new QStandardItem(QStringLiteral("全部楼盘"));
    model.appendRow(root);
    QStandardItem *district = nullptr;
    for (size_t at = 0; at < buildings.size(); ++at) {
        if (at % buildingsOfDistrict == 0)
            root->appendRow(district = new QStandardItem(QStringLiteral("天河")));
        auto *item = new QStandardItem(buildings[at].text);
        item->setData(static_cast<int>(at), Qt::UserRole);
        district->appendRow(item);
    }
}

void fillTree(cTreeView &tv, const std::vector<Building> &buildings)
{
    tv.NodeAdd({.key = QStringLiteral("ROOT"), .text = QStringLiteral("全部楼盘")});
    QVariant district;
    for (size_t at = 0; at < buildings.size(); ++at) {
        if (at % buildingsOfDistrict == 0) {
            district = QStringLiteral("k%1").arg(at);
            tv.NodeAdd({.relative = QStringLiteral("ROOT"),
                        .key = district.toString(),
                        .text = QStringLiteral("天河")});
        }
        tv.NodeAdd({.relative = district,
                    .key = buildings[at].key,
                    .text = buildings[at].text,
                    .tag = static_cast<int>(at)});
    }
}

/// A tree on the screen, and what it takes to do something with all of it.
struct BenchedTree
{
    explicit BenchedTree(int count)
        : buildings(makeBuildings(count))
    {
        tv.HookCtrl(&tree, nullptr);
    }
    void fill()
    {
        fillTree(tv, buildings);
        screen.settle();
    }
    void refill()
    {
        tv.ClearTreeView();
        fill();
    }
    void expand()
    {
        tv.ExpandAll();
        screen.settle();
    }
    void find()
    {
        Node *found = nullptr;
        tv.NodeFindNext(found, QStringLiteral("没有这样的楼盘"), 0, false);
        keep(found != nullptr);
    }
    void filter()
    {
        tree.setFilter(QStringLiteral("9号"));
        screen.settle();
    }
    void clear()
    {
        tv.ClearTreeView();
        screen.settle();
    }
    void collapse()
    {
        tree.setFilter({});
        tv.CollapseAll();
        screen.settle();
    }

    std::vector<Building> buildings;
    TreeView tree{QStringLiteral("TV")};
    cTreeView tv{{}};
    ShownTree screen{tree};
};

struct Operation
{
    const char *name;
    void (BenchedTree::*run)();
    void (BenchedTree::*before)();
};

constexpr Operation operations[] = {{"fill", &BenchedTree::fill, &BenchedTree::clear},
                                    {"expand", &BenchedTree::expand, &BenchedTree::collapse},
                                    {"find", &BenchedTree::find, &BenchedTree::expand},
                                    {"filter", &BenchedTree::filter, &BenchedTree::collapse},
                                    {"clear", &BenchedTree::clear, &BenchedTree::refill}};

/// Whole and a part in turn; `linear` is 1 where the time grows with the number of nodes.
QJsonObject measure(const Operation &operation, BenchedTree &whole, BenchedTree &part, int rounds)
{
    whole.refill();
    part.refill();
    const auto times =
        medians({{"whole", [&] { (whole.*operation.run)(); }, [&] { (whole.*operation.before)(); }},
                 {"part", [&] { (part.*operation.run)(); }, [&] { (part.*operation.before)(); }}},
                rounds);
    return {{QStringLiteral("operation"), QLatin1String(operation.name)},
            {QStringLiteral("ms"), rounded(times[0])},
            {QStringLiteral("linear"), rounded(times[0] / times[1] / partOf)}};
}

} // namespace

int treeBenchmark(const Options &options)
{
    BenchedTree whole(options.buildings);
    BenchedTree part(std::max(1, options.buildings / partOf));
    for (const Operation &operation : operations)
        print(measure(operation, whole, part, options.rounds * 3));
    std::unique_ptr<QStandardItemModel> model;
    const auto times = medians({{"standard model", [&] { fillStandardModel(*model, whole.buildings); },
                                 [&] { model = std::make_unique<QStandardItemModel>(); }},
                                {"tree", [&] { whole.fill(); }, [&] { whole.clear(); }}},
                               options.rounds * 3);
    print({{QStringLiteral("benchmark"), QStringLiteral("tree")},
           {QStringLiteral("nodes"), whole.tree.nodes().Count()},
           {QStringLiteral("standard_model_ms"), rounded(times[0])},
           {QStringLiteral("ours_ms"), rounded(times[1])},
           {QStringLiteral("ratio"), rounded(times[1] / times[0])}});
    return 0;
}

} // namespace ebtq::bench
