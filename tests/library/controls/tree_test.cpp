#include "library/controls/c_tree_view.h"

#include <gtest/gtest.h>

#include <functional>

using namespace ebtq;
using namespace Qt::StringLiterals;

namespace {

/// Two districts with buildings below one root, in rows of 10 by 10 pixels of which five are seen. Writes
/// down its events.
class TreeTest : public testing::Test
{
protected:
    TreeTest()
    {
        tv.HookCtrl(&tree, nullptr);
        tv.setDragEnabled(true);
        tree.setViewport(100, 50, 10);
        for (const auto &[parent, key, text] : {std::tuple("", "ROOT", "全部楼盘"),
                                                {"ROOT", "k1", "天河"},
                                                {"ROOT", "k2", "越秀"},
                                                {"k1", "l1", "A1 东湖 Garden"},
                                                {"k2", "l2", "B2 西湖"},
                                                {"k1", "l3", "A3 南湖"}})
            add(QString::fromUtf8(parent), QString::fromUtf8(key), QString::fromUtf8(text));
        tv.ReSelectItem(node("ROOT"));
        const auto note = [this](const char *name) {
            return [this, name](const Node *one, const Node *other) { log(name, one, other); };
        };
        QObject::connect(&tv, &cTreeView::Dragging, note("over"));
        QObject::connect(&tv, &cTreeView::Dropped, note("drop"));
        QObject::connect(&tv, &cTreeView::StartDrag, [this](Node *at) { log("start", at); });
        QObject::connect(&tv, &cTreeView::Selected, [this](Node *at) { log("sel", at); });
        QObject::connect(&tv, &cTreeView::ContextMenu, [this](float, float, Node *at) { log("menu", at); });
    }

    Node *add(const QString &parent, const QString &key, const QString &text)
    {
        return tv.NodeAdd({.relative = parent.isEmpty() ? QVariant() : parent,
                           .key = key,
                           .text = text,
                           .tag = u"tag "_s + key});
    }
    Node *node(const char *key) { return tree.nodes().Item(QString::fromLatin1(key)); }
    void log(const char *name, const Node *one, const Node *other = nullptr)
    {
        events += QString::fromLatin1(name) + u' ' + (one ? one->Key() : u"-"_s) +
                  (other ? u' ' + other->Key() : QString()) + u';';
    }
    QString taken() { return std::exchange(events, {}); }
    QString rows()
    {
        QStringList keys;
        for (const Node *row : tree.sight().rows())
            keys += row->Key();
        return keys.join(u' ');
    }
    [[nodiscard]] QString selected() const
    {
        return tree.SelectedItem() ? tree.SelectedItem()->Key() : QString();
    }
    void press(int row) { Q_EMIT tree.MouseDown(Qt::LeftButton, 5, static_cast<float>(row * 10 + 5)); }
    void drag(int row)
    {
        if (tree.isDragging())
            Q_EMIT tree.DragOver(5, static_cast<float>(row * 10 + 5));
        else
            Q_EMIT tree.MouseMove(Qt::LeftButton, 5, static_cast<float>(row * 10 + 5));
    }
    void drop(int row) { tree.Drag(TreeView::EndDrag, 5, static_cast<float>(row * 10 + 5)); }

    TreeView tree{u"TV"_s};
    std::optional<QString> answer;
    cTreeView tv{[this](const QString &prompt, const QString &title, const QString &preset) {
        events += title + u'|' + prompt + u'|' + preset + u';';
        return answer;
    }};
    QString events;
};

TEST_F(TreeTest, OpensAndClosesRows)
{
    EXPECT_EQ(rows(), u"ROOT k1 l1 l3 k2 l2"_s);
    tv.CollapseAll();
    node("ROOT")->setExpanded(true);
    EXPECT_EQ(rows(), u"ROOT k1 k2"_s);
    tv.ExpandChildNodes(node("k2"));
    EXPECT_EQ(rows(), u"ROOT k1 k2 l2"_s);
    tv.ExpandAll();
    tv.CollapseChildNodes(node("k1"));
    EXPECT_EQ(rows(), u"ROOT k1 k2 l2"_s);
    node("l1")->EnsureVisible();
    EXPECT_EQ(rows(), u"ROOT k1 l1 l3 k2 l2"_s);
}

TEST_F(TreeTest, RefusesWhatCannotBeDone)
{
    Node *foreign = nullptr;
    TreeView other(u"TV2"_s);
    foreign = other.nodes().Add({}, Node::Child, u"x"_s, u"x"_s);
    QString text;
    const std::function<bool()> refused[] = {
        [&] { return add(u"ROOT"_s, u"l1"_s, u"twice"_s) != nullptr; },
        [&] { return add(u"nobody"_s, u"n"_s, u"n"_s) != nullptr; },
        [&] { return tv.NodeAdd({.relative = QVariant::fromValue(foreign), .key = u"n"_s}) != nullptr; },
        [&] { return tv.NodeAdd({.relative = QVariant::fromValue<Node *>(nullptr)}) != nullptr; },
        [&] { return tv.NodeDelete(nullptr, true) || tv.NodeDelete(foreign, true); },
        [&] { return tv.NodeRename(nullptr, u"x"_s, true); },
        [&] { return tv.NodeMove(nullptr, node("k1"), true) || tv.NodeMove(node("k1"), foreign, true); },
        [&] { return tv.NodeMove(node("l1"), node("l1"), true); },
        [&] { return tv.NodeMove(node("ROOT"), node("l1"), true); },
        [&] { return node("k1")->setParent(node("l1")); },
        [&] { return tv.NodeCopy(node("l1"), node("l1"), true) || tv.NodeCopy(node("l1"), nullptr, true); },
        [&] { return tv.CancelCopy(); },
        [&] { return tv.IsParentNode(nullptr, node("l1")) || tv.IsParentNode(node("l1"), nullptr); },
        [&] { return tv.IsRootNode(nullptr) || tv.IsRootNode(node("k1")); },
        [&] { return tv.NodeFindTag(node("k2"), u"tag l1"_s, text); },
        [&] { return cTreeView({}).ReSelectItem(nullptr); },
    };
    for (size_t at = 0; at < std::size(refused); ++at)
        EXPECT_FALSE(refused[at]()) << at;
    for (const int mode : {-1, 6})
        tv.ScrollView(mode);
    EXPECT_EQ(tree.nodes().Count() + tree.TopRow(), 6);
    EXPECT_EQ(taken(), QString());
}

TEST_F(TreeTest, FindsInOrderOfInsertion)
{
    struct Case
    {
        const char16_t *text;
        int behind;
        const char16_t *found;
        const char16_t *events;
    };
    for (const Case &at : {Case{u"湖", 0, u"l1", u"sel l1;"},
                           {u"湖", 4, u"l2", u"sel l2;"},
                           {u"湖", 5, u"l3", u"sel l3;"},
                           {u"湖", 6, u"ROOT", u"sel ROOT;"},
                           {u"garDEN", 0, u"l1", u"sel l1;"},
                           {u"", 0, u"l1", u""},
                           {u"湖", -9, u"l1", u"sel l1;"}}) {
        Node *found = nullptr;
        tv.NodeFindNext(found, QString::fromUtf16(at.text), at.behind, true);
        EXPECT_EQ(selected(), QString::fromUtf16(at.found));
        EXPECT_EQ(taken(), QString::fromUtf16(at.events));
    }
    Node *found = nullptr;
    QString text;
    EXPECT_FALSE(tv.NodeFind(found, text, u"旧"_s, true));
    EXPECT_EQ(taken(), u"查找记录|输入要查找的节点名称:|旧;"_s);
    answer = u"西湖"_s;
    EXPECT_TRUE(tv.NodeFind(found, text, {}, true));
    EXPECT_EQ(found->Key() + text, u"l2西湖"_s);
    EXPECT_TRUE(tv.NodeFindTag(nullptr, u"TAG L3"_s, text));
    EXPECT_EQ(text, u"l3"_s);
    EXPECT_TRUE(tv.NodeMatch(node("k2"), u"西"_s, true));
    EXPECT_FALSE(tv.NodeMatch(node("k2"), u"西"_s, false));
}

TEST_F(TreeTest, WalksAndScrolls)
{
    for (const auto &[from, next, previous] : {std::tuple("ROOT", "k1", "ROOT"),
                                               {"k1", "k2", "ROOT"},
                                               {"k2", "l2", "k1"},
                                               {"l1", "l3", "k1"},
                                               {"l3", "l3", "l1"}}) {
        tree.setSelectedItem(node(from));
        tv.MoveNodeNext();
        EXPECT_EQ(selected(), QString::fromLatin1(next));
        tree.setSelectedItem(node(from));
        tv.MoveNodePrevious();
        EXPECT_EQ(selected(), QString::fromLatin1(previous));
    }
    for (int more = 0; more < 20; ++more)
        add(u"k2"_s, {}, u"更多"_s);
    tv.ReSelectItem(node("ROOT"));
    for (const auto &[mode, top] :
         {std::pair(5, 21), {2, 20}, {1, 16}, {3, 17}, {4, 21}, {3, 21}, {0, 0}, {1, 0}}) {
        tv.ScrollView(mode);
        EXPECT_EQ(tree.TopRow(), top) << "mode " << mode;
    }
    EXPECT_EQ(tv.NodeFirstViewable(), node("ROOT"));
    EXPECT_EQ(tv.NodeLastViewable(), node("k2"));
    EXPECT_EQ(selected(), u"ROOT"_s);
}

TEST_F(TreeTest, MovesAndCopiesBranches)
{
    EXPECT_TRUE(tv.NodeMove(node("k1"), node("l1"), true));
    EXPECT_EQ(rows(), u"ROOT k2 l2 l1 k1 l3"_s);
    QObject::connect(&tv, &cTreeView::CopyNode, [this](Node *source, Node *target) {
        add(target->Key(), u"c"_s + source->Key(), source->Text());
        if (source->Key() == u"l3")
            tv.CancelCopy();
    });
    EXPECT_TRUE(tv.NodeCopy(node("k2"), node("l2"), true)) << "into its own branch";
    EXPECT_EQ(rows(), u"ROOT k2 l2 ck2 cl2 l1 k1 l3"_s);
    EXPECT_FALSE(tv.NodeCopy(node("ROOT"), node("k1"), true));
    EXPECT_EQ(node("l3")->NextSibling(), nullptr) << "nothing is copied after the cancelled node";
}

TEST_F(TreeTest, DeletesAndSelectsTheNeighbour)
{
    for (const auto &[key, told] :
         {std::pair("l1", "sel l3;"), {"l3", "sel k1;"}, {"k2", "sel k1;"}, {"ROOT", "sel -;"}}) {
        EXPECT_TRUE(tv.NodeDelete(node(key), true));
        EXPECT_EQ(taken(), QString::fromLatin1(told));
    }
    EXPECT_EQ(tree.nodes().Count(), 0);
    tv.ClearTreeView();
    EXPECT_FALSE(tv.MoveNodeNext() || tv.MoveNodePrevious() || tv.NodeFirstViewable() ||
                 tv.NodeLastViewable());
}

TEST_F(TreeTest, TellsEachSelectionOnce)
{
    tree.click(*node("k1"));
    tree.click(*node("k1"));
    EXPECT_EQ(taken(), u"sel k1;"_s);
    add(u"k1"_s, u"l9"_s, u"新"_s);
    tree.click(*node("k1"));
    EXPECT_EQ(taken(), u"sel k1;"_s) << "the new node was selected meanwhile";
    tree.click(*node("l1"));
    tree.open(*node("k1"), false);
    EXPECT_EQ(taken(), u"sel l1;sel k1;"_s);
    for (const int mode : {0, 1}) {
        tv.setContextMenuMode(mode);
        Q_EMIT tree.MouseDown(Qt::RightButton, 5, static_cast<float>(25 - 10 * mode));
        Q_EMIT tree.MouseUp(Qt::RightButton, 5, static_cast<float>(25 - 10 * mode));
    }
    EXPECT_EQ(taken(), u"sel k2;menu k2;sel k1;menu k1;"_s);
}

TEST_F(TreeTest, DragsToAnotherNode)
{
    struct Case
    {
        const char *what;
        std::function<void()> act;
        const char16_t *events;
    };
    tree.setViewport(100, 60, 10);
    const Case cases[] = {
        {"onto another",
         [this] {
             drag(3);
             drop(5);
         },
         u"start l1;over l3 l1;drop l2 l1;"},
        {"onto itself", [this] { drop(2); }, u"start l1;"},
        {"beside the rows", [this] { drop(9); }, u"start l1;"},
        {"onto the root", [this] { drop(0); }, u"start l1;drop ROOT l1;"},
        {"cancelled",
         [this] {
             tree.Drag(TreeView::CancelDrag);
             drop(3);
         },
         u"start l1;"},
        {"removed",
         [this] {
             tree.nodes().Remove(*node("l1"));
             drag(3);
             drop(3);
         },
         u"start l1;"},
        {"cleared",
         [this] {
             tv.ClearTreeView();
             drag(3);
             drop(0);
         },
         u"start l3;"},
    };
    for (const Case &at : cases) {
        press(2);
        drag(2);
        at.act();
        EXPECT_EQ(taken(), QString::fromUtf16(at.events)) << at.what;
        EXPECT_FALSE(tree.isDragging() || tree.DropHighlight()) << at.what;
    }
}

TEST_F(TreeTest, ScrollsNearTheEdgesOfADrag)
{
    for (int more = 0; more < 20; ++more)
        add(u"k2"_s, {}, u"更多"_s);
    tree.setTopRow(5);
    press(2);
    drag(2);
    drag(4);
    EXPECT_EQ(tree.TopRow(), 6);
    drag(1);
    EXPECT_EQ(tree.TopRow(), 5);
    drag(2);
    EXPECT_EQ(tree.TopRow(), 5);
    tv.setDragEnabled(false);
    EXPECT_FALSE(tree.isDragging());
}

TEST_F(TreeTest, FilterKeepsParentsAndCounts)
{
    tree.setCounted([](const Node &at) { return at.Key().startsWith(u'l'); });
    tv.CollapseAll();
    struct Case
    {
        const char16_t *text;
        const char16_t *rows;
        int count;
    };
    for (const Case &at : {Case{u"西", u"ROOT k2 l2", 1},
                           {u"天河", u"ROOT k1 l1 l3", 2},
                           {u"楼盘", u"ROOT", 0},
                           {u"nobody", u"", 0},
                           {u"", u"ROOT", 3}}) {
        tree.setFilter(QString::fromUtf16(at.text));
        EXPECT_EQ(rows(), QString::fromUtf16(at.rows));
        EXPECT_EQ(tree.sight().count(), at.count);
    }
    tree.setFilter(u"西"_s);
    tree.open(*node("k2"), false);
    EXPECT_EQ(rows(), u"ROOT k2"_s);
    tv.ReSelectItem(node("l1"));
    EXPECT_EQ(rows(), u"ROOT k1 l1 k2"_s) << "what is selected is shown";
    tree.setSelectedText(u"b2 西湖"_s);
    EXPECT_EQ(tree.SelectedText(), u"B2 西湖"_s);
}

} // namespace
