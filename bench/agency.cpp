#include "agency.h"

#include "database/schema/installer.h"
#include "host/demo/demo.h"
#include "host/module_ids.h"

#include <QJsonObject>

namespace ebtq::bench {

namespace {

/// Nobody is there to choose.
class NoPanels final : public host::PanelPresenter
{
public:
    std::optional<qsizetype> choose(const host::Panel &) override { return std::nullopt; }
    std::optional<QDate> chooseDate(const QDate &, int, int) override { return std::nullopt; }
};

/// Nobody is there to be asked.
class NoDesktop final : public Desktop
{
public:
    Answer messageBox(const QString &, const QString &, Icon, Buttons) override { return Answer::No; }
    std::optional<int> choose(const QString &, const QString &, const QStringList &) override { return {}; }
    std::optional<QString> inputBox(const QString &, const QString &, const QString &) override { return {}; }
    QString openDialog(const QString &, const QString &, const QString &) override { return {}; }
    QString saveDialog(const QString &, const QString &, const QString &) override { return {}; }
    void showModal(QObject &) override {}
    bool openFile(const QString &) override { return false; }
    void setWaitCursor(bool) override {}
    [[nodiscard]] QDateTime now() const override { return QDateTime(QDate(2026, 11, 22), QTime(9, 0)); }
    QString makeTempFile(const QString &) override { return {}; }
    QByteArray newGuidBytes() override { return {}; }
};

host::DemoOptions demoOptions(const Options &options)
{
    host::DemoOptions demo;
    demo.listings = options.rows;
    demo.customers = options.customers;
    demo.followUps = options.followUps;
    demo.today = QDate(2026, 11, 22);
    return demo;
}

} // namespace

Agency::Agency(const Options &options)
    : m_file(options.database.isEmpty() ? m_folder.filePath(QStringLiteral("agency.db")) : options.database)
    , m_connection(db::Connection::open(m_file, db::Connection::Missing::IsCreated))
    , m_presenter(std::make_unique<NoPanels>())
    , m_desktop(std::make_unique<NoDesktop>())
{
    const bool isEmptyServer =
        db::PostgresAddress::isUrl(m_file) && !m_connection->catalog().table(u"host_schema");
    if (options.database.isEmpty() || isEmptyServer) {
        db::install(*m_connection);
        host::writeDemo(*m_connection, demoOptions(options));
    }
    const host::User user{QStringLiteral("bench"), QStringLiteral("bench"), {}};
    const host::Settings settings{m_folder.filePath(QStringLiteral("work")), QDate(2026, 11, 22)};
    m_app = std::make_unique<host::Application>(*m_connection, user, settings, *m_presenter);
}

Agency::~Agency() = default;

db::SqliteConnection &Agency::connection()
{
    auto *connection = dynamic_cast<db::SqliteConnection *>(m_connection.get());
    if (!connection)
        throw std::runtime_error("this benchmark is for the embedded engine only");
    return *connection;
}

db::PostgresConnection &Agency::server()
{
    auto *connection = dynamic_cast<db::PostgresConnection *>(m_connection.get());
    if (!connection)
        throw std::runtime_error("this benchmark is for a server only");
    return *connection;
}

QByteArray handWrittenList(int moduleId)
{
    return "select '', 房源编号, 交易方式, 交易状态, 地区, 楼盘字典, 栋座位置, 房号,"
           " ifnull(楼层,'')||'/'||ifnull(总楼层,''), 附属房,"
           " ifnull(房型_房,'')||'房'||ifnull(房型_厅,'')||'厅'||ifnull(房型_卫,'')||'卫'||ifnull(房型_阳台,'"
           "')||'阳台',"
           " 总面积, 朝向, 装修, ifnull(售房价格,'')||'万元', ifnull(租房价格,'')||'元/月', 委托日期, "
           "C.mtname, D.姓名, 房源ID, coalesce(E.n,0)"
           " from fyxx A left join su_membership B on A.用户ID=B.userID"
           " left join su_usertype C on B.UserTypeID=C.mtID"
           " left join pdmgy D on A.业务员ID=D.雇员ID"
           " left join (select IDs, count(rowIndex) as n from pubAttach"
           " where isActive=1 and isPicture<>1 and progID=" +
           QByteArray::number(moduleId) +
           " group by IDs) E on E.IDs=A.房源ID"
           " order by 房源编号 desc";
}

} // namespace ebtq::bench
