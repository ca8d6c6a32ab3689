#include "shell/start/place_pages.h"

#include "screens/look/file_choice.h"

#include <QButtonGroup>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

namespace ebtq::shell {

namespace {

using Way = StartDraft::Way;

struct WayText
{
    Way way;
    QStringView objectName;
    QStringView caption;
    QStringView explanation;
};

constexpr WayText wayTexts[] = {
    {Way::NewAgency, u"newAgency", u"建立新机构(&N)",
     u"数据存放在本机的一个文件中，适合一台电脑，或共用一个文件夹。"},
    {Way::File, u"openFile", u"打开已有的数据库文件(&F)", u"本机或共用文件夹中的 .db 文件。"},
    {Way::Server, u"server", u"连接服务器(&S)", u"PostgreSQL 服务器上的数据库；空的数据库可以建立新机构。"},
    {Way::Sample, u"sample", u"试用示例机构(&T)", u"虚构的房源、客源和跟进，可以随意试用。"},
};

bool isUrl(const QString &location)
{
    return location.contains(QStringLiteral("://"));
}

int afterPlace(const StartDraft &draft)
{
    return draft.makesAgency() ? AgencyPageId : FinishPageId;
}

} // namespace

QString databaseFiles()
{
    return QStringLiteral("数据库 (*.db);;所有文件 (*)");
}

QWidget *fileField(QLineEdit *path, std::function<QString(const QString &present)> choose)
{
    auto *box = new QWidget;
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins({});
    auto *browse = new QPushButton(QStringLiteral("浏览(&B)…"));
    QObject::connect(browse, &QPushButton::clicked, path, [path, choose = std::move(choose)] {
        const QString chosen = choose(path->text());
        if (!chosen.isEmpty())
            path->setText(chosen);
    });
    row->addWidget(path, 1);
    row->addWidget(browse);
    box->setFocusProxy(path);
    path->setAccessibleName(QStringLiteral("文件"));
    return box;
}

ChoicePage::ChoicePage(StartDraft &draft, const QStringList &recent, const QString &folder)
    : StartPage(draft, QStringLiteral("欢迎使用房源管理"),
                QStringLiteral("请选择要使用的数据。以后启动时直接打开上次的数据。"))
    , m_ways(new QButtonGroup(this))
    , m_folder(folder)
{
    for (const WayText &text : wayTexts) {
        auto *button = new QRadioButton(text.caption.toString());
        button->setObjectName(text.objectName);
        m_ways->addButton(button, static_cast<int>(text.way));
        column().addWidget(button);
        auto *explanation = hintLabel({}, text.explanation.toString());
        explanation->setIndent(24);
        column().addWidget(explanation);
    }
    m_ways->button(static_cast<int>(draft.way))->setChecked(true);
    if (!recent.isEmpty())
        addRecent(recent);
    column().addStretch();
    connect(m_ways, &QButtonGroup::idClicked, this, [this] {
        if (m_recent)
            m_recent->clearSelection();
    });
}

/// Either a way or a database is marked, never both.
void ChoicePage::unmarkWays()
{
    QAbstractButton *marked = m_ways->checkedButton();
    if (!marked || m_recent->selectedItems().isEmpty())
        return;
    m_ways->setExclusive(false);
    marked->setChecked(false);
    m_ways->setExclusive(true);
}

void ChoicePage::addRecent(const QStringList &recent)
{
    constexpr int tallest = 110;
    column().addWidget(hintLabel({}, QStringLiteral("最近使用的数据库：")));
    m_recent = new QListWidget;
    m_recent->setObjectName(QStringLiteral("recent"));
    m_recent->setAccessibleName(QStringLiteral("最近使用的数据库"));
    m_recent->addItems(recent);
    m_recent->setMaximumHeight(tallest);
    column().addWidget(m_recent);
    connect(m_recent, &QListWidget::itemSelectionChanged, this, &ChoicePage::unmarkWays);
    connect(m_recent, &QListWidget::itemActivated, this, [this] { wizard()->next(); });
}

QString ChoicePage::chosenRecent() const
{
    // Not the current item: the list makes one current when it merely gets the keyboard.
    const QList<QListWidgetItem *> selected =
        m_recent ? m_recent->selectedItems() : QList<QListWidgetItem *>();
    return selected.isEmpty() ? QString() : selected.constFirst()->text();
}

StartDraft::Way ChoicePage::chosenWay() const
{
    const QString recent = chosenRecent();
    return recent.isEmpty() ? static_cast<Way>(m_ways->checkedId()) : isUrl(recent) ? Way::Server : Way::File;
}

void ChoicePage::takeOver()
{
    draft().way = chosenWay();
    draft().proposed = chosenRecent();
    if (draft().way == Way::Sample)
        draft().chooseSample(m_folder);
}

int ChoicePage::nextId() const
{
    switch (chosenWay()) {
    case Way::NewAgency:
        return AgencyPageId;
    case Way::File:
        return FilePageId;
    case Way::Server:
        return ServerPageId;
    case Way::Sample:
        break;
    }
    return FinishPageId;
}

FilePage::FilePage(StartDraft &draft)
    : StartPage(draft, QStringLiteral("打开数据库文件"),
                QStringLiteral("较早的程序所建的文件会先备份再升级。"))
    , m_path(startField(QStringLiteral("path")))
{
    addForm()->addRow(QStringLiteral("文件(&P) *"), fileField(m_path, [](const QString &present) {
                          return look::chooseFileToOpen(QStringLiteral("打开数据库"),
                                                        QFileInfo(present).absolutePath(), databaseFiles());
                      }));
    column().addStretch();
}

void FilePage::initializePage()
{
    if (!draft().proposed.isEmpty())
        m_path->setText(draft().proposed);
    m_path->setFocus();
}

void FilePage::takeOver()
{
    draft().chooseExisting(m_path->text());
}

int FilePage::nextId() const
{
    return afterPlace(draft());
}

ServerPage::ServerPage(StartDraft &draft)
    : StartPage(draft, QStringLiteral("连接服务器"), QStringLiteral("由服务器的管理员告知。密码不会保存。"))
    , m_host(startField(QStringLiteral("host"), QStringLiteral("localhost")))
    , m_port(new QSpinBox)
    , m_base(startField(QStringLiteral("base")))
    , m_user(startField(QStringLiteral("user")))
    , m_password(startField(QStringLiteral("password")))
    , m_result(hintLabel(QStringLiteral("result")))
{
    constexpr int highestPort = 65535;
    m_port->setObjectName(QStringLiteral("port"));
    m_port->setRange(1, highestPort);
    m_port->setValue(ServerAddress::defaultPort);
    m_password->setEchoMode(QLineEdit::Password);
    QFormLayout *form = addForm();
    form->addRow(QStringLiteral("服务器(&H) *"), m_host);
    form->addRow(QStringLiteral("端口(&O) *"), m_port);
    form->addRow(QStringLiteral("数据库(&D) *"), m_base);
    form->addRow(QStringLiteral("用户名(&U) *"), m_user);
    form->addRow(QStringLiteral("密码(&P)"), m_password);
    auto *tryButton = new QPushButton(QStringLiteral("测试连接(&T)"));
    tryButton->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    tryButton->setObjectName(QStringLiteral("try"));
    connect(tryButton, &QPushButton::clicked, this, &ServerPage::tryConnection);
    form->addRow(QString(), tryButton);
    form->addRow(QString(), m_result);
    column().addStretch();
}

void ServerPage::initializePage()
{
    if (!draft().proposed.isEmpty()) {
        const ServerAddress address = ServerAddress::of(draft().proposed);
        m_host->setText(address.host);
        m_port->setValue(address.port);
        m_base->setText(address.base);
        m_user->setText(address.user);
    }
    (draft().proposed.isEmpty() ? m_host : m_password)->setFocus();
}

void ServerPage::takeOver()
{
    m_result->clear();
    draft().chooseExisting(
        ServerAddress{m_host->text(), m_port->value(), m_base->text(), m_user->text(), m_password->text()}
            .url());
}

void ServerPage::tryConnection()
{
    if (attempt([this] { takeOver(); }))
        m_result->setText(draft().makesAgency() ? QStringLiteral("连接成功。数据库是空的，下一步建立新机构。")
                                                : QStringLiteral("连接成功，数据库可以使用。"));
}

int ServerPage::nextId() const
{
    return afterPlace(draft());
}

} // namespace ebtq::shell
