#include "database/postgresql/postgres_session.h"

#include "database/postgresql/postgres_error.h"
#include "database/postgresql/postgres_values.h"

#include <QTimeZone>

#include <libpq-fe.h>

#include <exception>
#include <optional>

#include <poll.h>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

struct Clear
{
    void operator()(PGresult *result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, Clear>;

const QString transactionLost = u"与数据库服务器的连接已断开，尚未提交的事务已丢失，数据没有保存，请重试！"_s;
const QString outcomeUnknown = u"与数据库服务器的连接已断开，不能确定操作是否已完成，请核对后再重试！"_s;
const QString nothingRead = u"与数据库服务器的连接已断开，没有读到数据，请重试！"_s;
const QString commitUnknown = u"提交时与数据库服务器的连接断开，不能确定数据是否已保存，请核对后再重试！"_s;

/// Our schema first, then the one of the extension, which an administrator may have created elsewhere.
/// Numbers are read with 15 digits, dates in stored form. Compiling a list's plan costs more than it saves.
constexpr char settings[] =
    "select set_config('search_path','ebtq'||coalesce((select ','||quote_ident(nspname) from pg_extension"
    " join pg_namespace on pg_namespace.oid=extnamespace where extname='citext' and "
    "nspname<>'ebtq'),''),false),"
    "set_config('extra_float_digits','0',false),set_config('datestyle','ISO, YMD',false),"
    "set_config('standard_conforming_strings','on',false),set_config('bytea_output','hex',false),"
    "set_config('default_transaction_isolation','read committed',false),set_config('jit','off',false)";

bool isGood(const PGresult *result)
{
    const ExecStatusType status = PQresultStatus(result);
    return status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK || status == PGRES_COPY_IN;
}

/// Also after the last message of a server that closed the connection.
bool hasInput(const pg_conn *handle)
{
    pollfd socket{PQsocket(handle), POLLIN, 0};
    return poll(&socket, 1, 0) > 0;
}

bool hasRows(const PGresult *result)
{
    const ExecStatusType status = PQresultStatus(result);
    return status == PGRES_TUPLES_OK || status == PGRES_SINGLE_TUPLE;
}

} // namespace

void PostgresSession::Closer::operator()(pg_conn *handle) const
{
    PQfinish(handle);
}

/// For more than a single statement: rolled back on destruction unless released. No effect outside a
/// transaction.
class PostgresSession::Savepoint
{
public:
    explicit Savepoint(PostgresSession &session)
        : m_session(session)
        , m_isOpen(session.inTransaction())
    {
        if (m_isOpen)
            m_session.simple("savepoint ebtq_statement");
    }
    Savepoint(const Savepoint &) = delete;
    Savepoint &operator=(const Savepoint &) = delete;
    ~Savepoint()
    {
        if (m_isOpen)
            undo(m_session);
    }
    void release()
    {
        if (m_isOpen)
            m_session.simple("release savepoint ebtq_statement");
        m_isOpen = false;
    }
    static void undo(PostgresSession &session)
    {
        const Result result(PQexec(session.handle(),
                                   "rollback to savepoint ebtq_statement; release savepoint ebtq_statement"));
    }

private:
    PostgresSession &m_session;
    bool m_isOpen;
};

PostgresSession::PostgresSession(const PostgresAddress &address)
    : m_address(address)
{
    connect();
}

PostgresSession::~PostgresSession() = default;

void PostgresSession::connect()
{
    m_handle.reset();
    std::unique_ptr<pg_conn, Closer> handle(
        PQconnectdbParams(m_address.keywords().data(), m_address.values().data(), 0));
    if (PQstatus(handle.get()) != CONNECTION_OK)
        throw DatabaseError(connectFailureText(handle.get(), m_address.shown()));
    PQsetNoticeProcessor(
        handle.get(), [](void *, const char *) {}, nullptr);
    m_handle = std::move(handle);
    try {
        configure();
    } catch (const DatabaseError &) {
        // A session without its settings would give wrong results. No user statement was sent yet.
        const QString why = connectFailureText(this->handle(), m_address.shown());
        m_handle.reset();
        throw DatabaseError(why);
    }
}

/// The session uses the user's time zone, wherever the server is; a server that does not know the zone keeps
/// its own.
void PostgresSession::configure()
{
    simple(settings);
    setLockTimeout(m_lockTimeout);
    const QByteArray zone = QTimeZone::systemTimeZoneId();
    const char *value = zone.constData();
    const Result result(PQexecParams(handle(), "select set_config('timezone',$1,false)", 1, nullptr, &value,
                                     nullptr, nullptr, 0));
}

bool PostgresSession::isLost() const
{
    return PQstatus(handle()) != CONNECTION_OK;
}

/// Pending messages of the server are read first: a connection that it has closed is noticed before anything
/// is sent.
void PostgresSession::requireConnection(bool isReading)
{
    m_isReading = isReading;
    const bool wasInTransaction = inTransaction();
    while (!isLost() && hasInput(handle()) && PQconsumeInput(handle()) == 1)
        PQisBusy(handle()); // takes in what was read; the end of it comes with the next reading
    m_hadTransaction = wasInTransaction;
    if (isLost() && wasInTransaction)
        lose();
    if (!isLost())
        return;
    connect();
    ++m_connectionNumber;
}

void PostgresSession::lose() const
{
    throw ConnectionLost(m_hadTransaction ? transactionLost : m_isReading ? nothingRead : outcomeUnknown);
}

void PostgresSession::simple(const QByteArray &statement)
{
    const Result result(PQexec(handle(), statement.constData()));
    if (isGood(result.get()))
        return;
    if (isLost())
        lose();
    throw serverError(result.get());
}

void PostgresSession::require(int isSent)
{
    if (isSent == 1)
        return;
    if (isLost())
        lose();
    throw DatabaseError(u"数据库错误：%1"_s.arg(QString::fromUtf8(PQerrorMessage(handle())).trimmed()));
}

void PostgresSession::sendAlone(const QByteArray &statement, const PostgresValues &values, Format format)
{
    require(PQsendQueryParams(handle(), statement.constData(), values.count(), nullptr, values.values(),
                              values.lengths(), values.formats(), static_cast<int>(format)));
    PQsetSingleRowMode(handle());
}

/// All three are sent in one round trip.
void PostgresSession::sendWithSavepoint(const QByteArray &statement, const PostgresValues &values,
                                        Format format)
{
    require(PQenterPipelineMode(handle()));
    const auto send = [this](const char *piece) {
        PQsendQueryParams(handle(), piece, 0, nullptr, nullptr, nullptr, nullptr, 0);
    };
    send("savepoint ebtq_statement");
    PQsendQueryParams(handle(), statement.constData(), values.count(), nullptr, values.values(),
                      values.lengths(), values.formats(), static_cast<int>(format));
    send("release savepoint ebtq_statement");
    PQpipelineSync(handle());
}

qint64 PostgresSession::run(const QByteArray &statement, const RowTaker &take)
{
    return run(statement, {}, Format::Text, take);
}

qint64 PostgresSession::run(const QByteArray &statement, const PostgresValues &values, const RowTaker &take)
{
    return run(statement, values, Format::Text, take);
}

qint64 PostgresSession::readBytes(const QByteArray &statement, const Connection::PieceTaker &take)
{
    std::optional<qint64> size;
    run(statement, {}, Format::Binary, [&](const pg_result *rows) {
        if (PQntuples(rows) == 0)
            return;
        size = PQgetlength(rows, 0, 0);
        take(QByteArrayView(PQgetvalue(rows, 0, 0), *size));
    });
    if (!size)
        throw DatabaseError(u"内容已被他人删除，无法读取！"_s);
    return *size;
}

qint64 PostgresSession::run(const QByteArray &statement, const PostgresValues &values, Format format,
                            const RowTaker &take)
{
    if (statement.contains('\0'))
        throw DatabaseError(u"内容中有不能保存的字符（NUL），操作未完成！"_s);
    requireConnection(static_cast<bool>(take));
    const bool isPipeline = inTransaction();
    if (isPipeline)
        sendWithSavepoint(statement, values, format);
    else
        sendAlone(statement, values, format);
    return collect(take, isPipeline);
}

/// All results are read to the end, also after an error: the connection must be idle afterwards.
qint64 PostgresSession::collect(const RowTaker &take, bool isPipeline)
{
    qint64 changed = 0;
    std::optional<ServerError> refusal;
    std::exception_ptr failure;
    for (;;) {
        const Result result(PQgetResult(handle()));
        if (!result && (!isPipeline || isLost()))
            break;
        if (!result) { // the end of one of several statements; the rows of the next come one at a time, too
            PQsetSingleRowMode(handle());
            continue;
        }
        const ExecStatusType status = PQresultStatus(result.get());
        if (status == PGRES_PIPELINE_SYNC)
            break;
        if (status == PGRES_FATAL_ERROR && !refusal)
            refusal = serverError(result.get());
        if (status == PGRES_COMMAND_OK)
            changed += QByteArray(PQcmdTuples(result.get())).toLongLong();
        if (!hasRows(result.get()) || !take || failure)
            continue;
        try {
            take(result.get());
        } catch (...) {
            failure = std::current_exception();
            cancel();
        }
    }
    if (isLost())
        lose();
    if (isPipeline)
        PQexitPipelineMode(handle());
    if (PQtransactionStatus(handle()) == PQTRANS_INERROR)
        Savepoint::undo(*this);
    if (failure)
        std::rethrow_exception(failure);
    if (refusal)
        throw *refusal;
    return changed;
}

void PostgresSession::cancel() noexcept
{
    char why[256];
    PGcancel *request = PQgetCancel(handle());
    PQcancel(request, why, sizeof why);
    PQfreeCancel(request);
}

void PostgresSession::runScript(const QByteArray &script)
{
    requireConnection();
    Savepoint savepoint(*this);
    simple(script);
    savepoint.release();
}

void PostgresSession::copyIn(const QByteArray &command, const QByteArray &data)
{
    constexpr qsizetype pieceSize = 1 << 20;
    requireConnection();
    Savepoint savepoint(*this);
    simple(command);
    for (qsizetype at = 0; at < data.size(); at += pieceSize) {
        const auto size = static_cast<int>(qMin(pieceSize, data.size() - at));
        require(PQputCopyData(handle(), data.constData() + at, size));
    }
    require(PQputCopyEnd(handle(), nullptr));
    collect({}, false);
    savepoint.release();
}

PostgresSession::ExactNumbers::ExactNumbers(PostgresSession &session)
    : m_session(session)
{
    m_session.requireConnection();
    m_session.simple("set extra_float_digits=1");
}

/// A new connection has the default setting.
PostgresSession::ExactNumbers::~ExactNumbers()
{
    const Result result(PQexec(m_session.handle(), "set extra_float_digits=0"));
}

void PostgresSession::begin(Connection::Flush flush)
{
    beginWith(flush == Connection::Flush::BeforeCommit ? "begin"
                                                       : "begin; set local synchronous_commit to off");
}

/// The snapshot is taken at the first statement.
void PostgresSession::beginReading()
{
    beginWith("begin isolation level repeatable read, read only; select 1");
}

void PostgresSession::beginWith(const QByteArray &statement)
{
    requireConnection();
    if (inTransaction())
        throw DatabaseError(u"上一个事务尚未结束！"_s);
    simple(statement);
}

/// The server answers the end of a failed transaction with a rollback and no error.
void PostgresSession::commit()
{
    requireConnection();
    if (!inTransaction())
        throw DatabaseError(u"没有可提交的事务，数据没有保存！"_s);
    const Result result(PQexec(handle(), "commit"));
    if (isLost())
        throw ConnectionLost(commitUnknown);
    if (!isGood(result.get()))
        throw serverError(result.get());
    if (QByteArrayView(PQcmdStatus(result.get())) != "COMMIT")
        throw DatabaseError(u"事务已被撤销，数据没有保存！"_s);
}

void PostgresSession::rollback() noexcept
{
    if (inTransaction())
        PQclear(PQexec(handle(), "rollback"));
}

bool PostgresSession::inTransaction() const
{
    const PGTransactionStatusType status = PQtransactionStatus(handle());
    return status == PQTRANS_INTRANS || status == PQTRANS_INERROR || status == PQTRANS_ACTIVE;
}

/// The server takes 0 for endless waiting.
void PostgresSession::setLockTimeout(int milliseconds)
{
    m_lockTimeout = qMax(1, milliseconds);
    const Result result(
        PQexec(handle(), ("set lock_timeout=" + QByteArray::number(m_lockTimeout)).constData()));
}

} // namespace ebtq::db
