#include "screens/matching/match_reasons_view.h"

#include "library/matching/match_reasons.h"
#include "screens/controls/flex_grid_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int charactersWide = 48;
constexpr int linesHigh = 30;
constexpr int criteriaRows = 9; ///< the caption and two bounds of four measures

QLabel *label(const QString &text, const QString &kind)
{
    auto *result = new QLabel(text);
    result->setProperty("kind", kind);
    result->setTextFormat(Qt::PlainText);
    return result;
}

} // namespace

MatchReasonsView::MatchReasonsView(MatchReasons &reasons, QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(u"为什么匹配"_s);
    auto *column = new QVBoxLayout(this);
    column->addWidget(label(reasons.title(), u"title"_s));
    auto *criteria = new FlexGridView(reasons.criteria(), this);
    criteria->setAccessibleName(u"匹配条件"_s);
    criteria->setFixedHeight(criteriaRows * (fontMetrics().lineSpacing() + 12));
    column->addWidget(criteria);
    column->addWidget(label(u"只差一项的记录"_s, u"title"_s));
    auto *misses = new FlexGridView(reasons.misses(), this);
    misses->setAccessibleName(u"只差一项的记录"_s);
    column->addWidget(misses, 1);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(label(reasons.remark(), u"caption"_s), 1);
    auto *close = new QPushButton(u"关闭(&X)"_s, this);
    close->setObjectName(u"CloseReasons"_s);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    bottom->addWidget(close);
    column->addLayout(bottom);
    setFocusProxy(criteria);
}

QSize MatchReasonsView::sizeHint() const
{
    return {charactersWide * fontMetrics().horizontalAdvance(u'房'), linesHigh * fontMetrics().lineSpacing()};
}

} // namespace ebtq
