#include "shell/start/agency_pages.h"

#include "contracts/host_contracts.h"
#include "screens/look/file_choice.h"
#include "shell/start/place_pages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

namespace ebtq::shell {

namespace {

QString sampleOf(const host::StandardList &list)
{
    QStringList names;
    for (const QStringList &row : list.rows)
        names << row.at(1);
    constexpr qsizetype longestKind = 6; // Chinese characters
    return QStringLiteral("%1　%2").arg(list.name.leftJustified(longestKind, u'　'), names.join(u'、'));
}

} // namespace

AgencyPage::AgencyPage(StartDraft &draft, const QString &folder)
    : StartPage(draft, QStringLiteral("新机构"), QStringLiteral("名称和部门以后可以更改，部门也可以增加。"))
    , m_path(startField(QStringLiteral("path"), folder + QStringLiteral("/ebtq.db")))
    , m_pathField(fileField(m_path,
                            [](const QString &present) {
                                return look::chooseFileToSave(QStringLiteral("新数据库"), present,
                                                              databaseFiles());
                            }))
    , m_name(startField(QStringLiteral("name")))
    , m_department(startField(QStringLiteral("department"), QStringLiteral("营业部")))
    , m_form(addForm())
{
    m_form->addRow(QStringLiteral("机构名称(&M)"), m_name);
    m_form->addRow(QStringLiteral("首个部门(&D) *"), m_department);
    m_form->addRow(QStringLiteral("数据库文件(&P) *"), m_pathField);
    column().addStretch();
}

void AgencyPage::initializePage()
{
    const bool isFile = draft().way == StartDraft::Way::NewAgency;
    m_pathField->setVisible(isFile);
    m_form->labelForField(m_pathField)->setVisible(isFile);
    m_name->setFocus();
}

void AgencyPage::takeOver()
{
    draft().agency.name = m_name->text();
    draft().agency.department = m_department->text();
    if (!m_name->text().trimmed().isEmpty())
        host::requireName(QStringLiteral("机构名称"), m_name->text());
    host::requireName(QStringLiteral("部门名称"), m_department->text());
    if (draft().way == StartDraft::Way::NewAgency)
        draft().chooseNewFile(m_path->text());
}

StaffPage::StaffPage(StartDraft &draft)
    : StartPage(draft, QStringLiteral("管理员"),
                QStringLiteral("管理员是首位员工，拥有全部权限。请记住密码，谁也无法读出它。"))
    , m_name(startField(QStringLiteral("administrator")))
    , m_password(startField(QStringLiteral("password")))
    , m_again(startField(QStringLiteral("again")))
    , m_strength(hintLabel(QStringLiteral("strength")))
{
    m_strength->setText(strengthText(host::Strength::TooShort));
    for (QLineEdit *field : {m_password, m_again})
        field->setEchoMode(QLineEdit::Password);
    QFormLayout *form = addForm();
    form->addRow(QStringLiteral("姓名(&M) *"), m_name);
    form->addRow(QStringLiteral("密码(&P) *"), m_password);
    form->addRow(QString(), m_strength);
    form->addRow(QStringLiteral("再次输入(&R) *"), m_again);
    column().addStretch();
    connect(m_password, &QLineEdit::textChanged, this, &StaffPage::showStrength);
}

void StaffPage::showStrength(const QString &password)
{
    m_strength->setText(strengthText(host::strengthOf(password)));
}

void StaffPage::takeOver()
{
    host::requireName(QStringLiteral("姓名"), m_name->text());
    host::requirePassword(m_password->text());
    if (m_again->text() != m_password->text())
        throw Failure(QStringLiteral("两次输入的密码不同，请重新输入！"));
    draft().agency.administrator = m_name->text();
    draft().agency.password = m_password->text();
}

DistrictsPage::DistrictsPage(StartDraft &draft)
    : StartPage(
          draft, QStringLiteral("城市和地区"),
          QStringLiteral(
              "一行一个，下级用空格或制表符缩进，最多三级；可以粘贴。没有下级的地区可以选作房源的城区。"))
    , m_lines(new QPlainTextEdit)
    , m_count(hintLabel(QStringLiteral("count")))
{
    m_lines->setObjectName(QStringLiteral("districts"));
    m_lines->setAccessibleName(QStringLiteral("地区"));
    m_lines->setPlaceholderText(QStringLiteral("云泽市\n    望澜区\n        柳岸\n        锦堤\n    锦溪区"));
    column().addWidget(m_lines, 1);
    column().addWidget(m_count);
    connect(m_lines, &QPlainTextEdit::textChanged, this, &DistrictsPage::count);
    count();
}

void DistrictsPage::count()
{
    try {
        const size_t count = host::readDistrictLines(m_lines->toPlainText()).size();
        m_count->setText(count == 0 ? QStringLiteral("还没有地区：没有地区就不能保存房源。")
                                    : QStringLiteral("%1 个地区").arg(count));
    } catch (const Failure &failure) {
        m_count->setText(QString::fromUtf8(failure.what()));
    }
}

void DistrictsPage::takeOver()
{
    draft().agency.districts = host::readDistrictLines(m_lines->toPlainText());
}

ListsPage::ListsPage(StartDraft &draft)
    : StartPage(draft, QStringLiteral("标准字典"),
                QStringLiteral("各输入框从这些字典中取值。交易类型和交易状态是保存房源所必需的。"))
    , m_kinds(new QListWidget)
{
    m_kinds->setObjectName(QStringLiteral("kinds"));
    m_kinds->setAccessibleName(QStringLiteral("标准字典"));
    m_kinds->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_kinds->setTextElideMode(Qt::ElideRight);
    column().addWidget(m_kinds, 1);
    auto *row = new QHBoxLayout;
    auto *all = new QPushButton(QStringLiteral("全选(&A)"));
    auto *none = new QPushButton(QStringLiteral("全不选(&U)"));
    connect(all, &QPushButton::clicked, this, [this] { tickAll(Qt::Checked); });
    connect(none, &QPushButton::clicked, this, [this] { tickAll(Qt::Unchecked); });
    row->addWidget(all);
    row->addWidget(none);
    row->addStretch();
    column().addLayout(row);
}

void ListsPage::initializePage()
{
    if (!m_lists.empty())
        return;
    attempt([this] { m_lists = host::readStandardLists(host::standardListsFile()); });
    for (const host::StandardList &list : m_lists) {
        auto *item = new QListWidgetItem(sampleOf(list), m_kinds);
        item->setToolTip(item->text());
        item->setCheckState(Qt::Checked);
    }
}

void ListsPage::tickAll(Qt::CheckState state)
{
    for (int row = 0; row < m_kinds->count(); ++row)
        m_kinds->item(row)->setCheckState(state);
}

void ListsPage::takeOver()
{
    draft().agency.lists.clear();
    for (int row = 0; row < m_kinds->count(); ++row) {
        if (m_kinds->item(row)->checkState() == Qt::Checked)
            draft().agency.lists.push_back(m_lists.at(static_cast<size_t>(row)));
    }
}

} // namespace ebtq::shell
