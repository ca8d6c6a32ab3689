#include "shell/print/setup_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

namespace ebtq::shell {

namespace {

QDoubleSpinBox *lengthBox(const QString &name, double least, double most, const QString &unit)
{
    auto *box = new QDoubleSpinBox;
    box->setObjectName(name);
    box->setRange(least, most);
    box->setDecimals(1);
    box->setSuffix(unit);
    return box;
}

} // namespace

SetupDialog::SetupDialog(const PrintSettings &settings, QWidget *parent)
    : QDialog(parent)
    , m_paper(new QComboBox)
    , m_orientation(new QComboBox)
    , m_margins{}
    , m_fitsWidth(new QCheckBox(QStringLiteral("所有列放在一页宽度内(&W)")))
    , m_titleSize(lengthBox(QStringLiteral("TitleSize"), smallestTitle, largestTitle, QStringLiteral(" 磅")))
    , m_copies(new QSpinBox)
{
    setObjectName(QStringLiteral("PageSetup"));
    setWindowTitle(QStringLiteral("页面设置"));
    m_paper->setObjectName(QStringLiteral("Paper"));
    m_orientation->setObjectName(QStringLiteral("Orientation"));
    m_fitsWidth->setObjectName(QStringLiteral("FitsWidth"));
    m_copies->setObjectName(QStringLiteral("Copies"));
    m_copies->setRange(1, mostCopies);
    for (const Paper &paper : papers())
        m_paper->addItem(paper.caption.toString(), paper.id);
    m_orientation->addItems({QStringLiteral("纵向"), QStringLiteral("横向")});
    auto *form = new QFormLayout(this);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    addFields(*form);
    addButtons();
    show(settings);
}

void SetupDialog::addFields(QFormLayout &form)
{
    form.addRow(QStringLiteral("纸张(&P)"), m_paper);
    form.addRow(QStringLiteral("方向(&D)"), m_orientation);
    form.addRow(QStringLiteral("页边距"), makeMargins());
    form.addRow(QString(), m_fitsWidth);
    form.addRow(QStringLiteral("标题字号(&S)"), m_titleSize);
    form.addRow(QStringLiteral("份数(&N)"), m_copies);
}

QWidget *SetupDialog::makeMargins()
{
    const std::pair<QString, QString> sides[] = {{QStringLiteral("MarginLeft"), QStringLiteral("左(&L)")},
                                                 {QStringLiteral("MarginTop"), QStringLiteral("上(&T)")},
                                                 {QStringLiteral("MarginRight"), QStringLiteral("右(&R)")},
                                                 {QStringLiteral("MarginBottom"), QStringLiteral("下(&B)")}};
    auto *box = new QWidget;
    auto *grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int side = 0; side < 4; ++side) {
        m_margins[side] = lengthBox(sides[side].first, 0, widestMargin, QStringLiteral(" 毫米"));
        auto *caption = new QLabel(sides[side].second);
        caption->setBuddy(m_margins[side]);
        grid->addWidget(caption, side % 2, side / 2 * 2);
        grid->addWidget(m_margins[side], side % 2, side / 2 * 2 + 1);
    }
    return box;
}

void SetupDialog::addButtons()
{
    auto *row = new QHBoxLayout;
    row->addStretch();
    auto *accept = new QPushButton(QStringLiteral("确定(&O)"));
    accept->setObjectName(QStringLiteral("Accept"));
    accept->setDefault(true);
    auto *leave = new QPushButton(QStringLiteral("取消(&C)"));
    connect(accept, &QPushButton::clicked, this, &QDialog::accept);
    connect(leave, &QPushButton::clicked, this, &QDialog::reject);
    row->addWidget(accept);
    row->addWidget(leave);
    static_cast<QFormLayout *>(layout())->addRow(row);
}

void SetupDialog::show(const PrintSettings &settings)
{
    m_paper->setCurrentIndex(m_paper->findData(settings.paper));
    m_orientation->setCurrentIndex(settings.isLandscape ? 1 : 0);
    const QMarginsF &margins = settings.margins;
    const double sides[] = {margins.left(), margins.top(), margins.right(), margins.bottom()};
    for (int side = 0; side < 4; ++side)
        m_margins[side]->setValue(sides[side]);
    m_fitsWidth->setChecked(settings.fitsWidth);
    m_titleSize->setValue(settings.titleSize);
    m_copies->setValue(settings.copies);
}

PrintSettings SetupDialog::settings() const
{
    return {static_cast<QPageSize::PageSizeId>(m_paper->currentData().toInt()),
            m_orientation->currentIndex() == 1,
            {m_margins[0]->value(), m_margins[1]->value(), m_margins[2]->value(), m_margins[3]->value()},
            m_fitsWidth->isChecked(),
            m_titleSize->value(),
            m_copies->value()};
}

} // namespace ebtq::shell
