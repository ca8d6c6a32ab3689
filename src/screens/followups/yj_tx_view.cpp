#include "screens/followups/yj_tx_view.h"

#include "library/followups/yj_tx.h"
#include "screens/controls/flex_grid_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr ListLook listLook{.emptyHint = u"今天没有待处理的提醒"};

} // namespace

YjTxView::YjTxView(YjTx &module, QWidget *parent)
    : ListView(module, listLook, parent)
{
    auto *bar = new QWidget(this);
    bar->setObjectName(module.Panel1().Name());
    bar->setProperty("kind", u"bar"_s);
    bar->setAttribute(Qt::WA_StyledBackground);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(12, 6, 12, 6);
    auto *title = new QLabel(module.lblCaption().Caption(), bar);
    title->setObjectName(module.lblCaption().Name());
    title->setProperty("kind", u"title"_s);
    row->addWidget(title);
    column()->addWidget(bar);
    column()->addWidget(makeGrid(), 1);
    follow(module, makeMenu());
}

} // namespace ebtq
