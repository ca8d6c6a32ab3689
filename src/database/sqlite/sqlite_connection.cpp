#include "database/sqlite/sqlite_connection.h"

#include "database/dialect/dialect.h"
#include "database/schema/ddl.h"
#include "database/sqlite/functions.h"
#include "database/sqlite/sqlite_blob.h"
#include "database/sqlite/sqlite_error.h"
#include "database/sqlite/sqlite_rows.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <sqlite3.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace ebtq::db {

namespace {

/// Declared types are the installer's, but those of columns added by hand are recognised as well.
ColumnType typeOfDeclaration(const QString &declared)
{
    struct Word
    {
        const char16_t *word;
        ColumnType type;
    };
    static constexpr Word words[] = {
        {u"INT", ColumnType::Integer}, {u"DATE", ColumnType::Date},   {u"BLOB", ColumnType::Binary},
        {u"NUM", ColumnType::Number},  {u"REAL", ColumnType::Number}, {u"DOUB", ColumnType::Number},
    };
    for (const Word &entry : words) {
        if (declared.contains(QStringView(entry.word), Qt::CaseInsensitive))
            return entry.type;
    }
    return ColumnType::Text;
}

/// Of a table of the engine's own making: one whose rows have numbers, which a key of the type "integer" is.
Catalog::Table readTable(SqliteConnection &connection, const QString &name, bool isWithoutNumbers)
{
    const QByteArray literal = '\'' + QString(name).replace(u'\'', u"''"_s).toUtf8() + '\'';
    const RowBlock columns = connection.queryNative(
        "select name, type, name in (select i.name from pragma_index_list(" + literal +
        ") l, pragma_index_info(l.name) i where i.seqno=0), pk=1 and upper(type)='INTEGER' and"
        " (select count(*) from pragma_table_info(" +
        literal + ") where pk>0)=1 from pragma_table_info(" + literal + ')');
    Catalog::Table table{name, {}};
    for (qsizetype at = 0; at < columns.rowCount(); ++at) {
        table.columns.push_back(
            {columns.value(at, 0).toString(), typeOfDeclaration(columns.value(at, 1).toString())});
        // Rows without numbers cannot be counted roughly, so their indexes are not chosen from.
        table.unindexed.push_back(columns.cell(at, 2) == "0" || isWithoutNumbers);
        if (columns.cell(at, 3) == "1" && !isWithoutNumbers)
            table.rowKey = table.columns.back().name;
    }
    return table;
}

Catalog readCatalog(SqliteConnection &connection)
{
    Catalog catalog;
    const RowBlock tables =
        connection.queryNative("select name, wr from pragma_table_list where schema='main'"
                               " and type in ('table','view') and name not like 'sqlite!_%' escape '!'");
    for (qsizetype row = 0; row < tables.rowCount(); ++row)
        catalog.add(readTable(connection, tables.value(row, 0).toString(), tables.cell(row, 1) == "1"));
    return catalog;
}

/// A database is private to its owner; the engine gives its log the same permissions.
class PrivateFiles
{
public:
    PrivateFiles()
        : m_before(::umask(0177))
    {}
    PrivateFiles(const PrivateFiles &) = delete;
    PrivateFiles &operator=(const PrivateFiles &) = delete;
    ~PrivateFiles() { ::umask(m_before); }

private:
    mode_t m_before;
};

bool isPlainFile(const QString &location)
{
    return !location.startsWith(u"file:") && location != u":memory:";
}

int openFlags(Connection::Missing missing)
{
    const int create = missing == Connection::Missing::IsCreated ? SQLITE_OPEN_CREATE : 0;
    // One connection belongs to one thread, so the engine need not lock itself.
    return SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | create;
}

} // namespace

void SqliteConnection::Closer::operator()(sqlite3 *handle) const
{
    sqlite3_close_v2(handle);
}

SqliteConnection::SqliteConnection(const QString &location, Missing missing)
    : m_location(location)
{
    const bool plainFile = isPlainFile(location);
    if (plainFile && missing == Missing::IsAnError && !QFileInfo::exists(location))
        throw DatabaseError(u"找不到数据库文件：%1"_s.arg(location));
    try {
        open(location, missing);
        configure(missing);
    } catch (const DatabaseError &failure) {
        if (!plainFile)
            throw;
        if (isOnReadOnlyMount(location)) {
            openSealed();
            return;
        }
        const QString obstacle = folderObstacle(location);
        throw obstacle.isEmpty() ? failure : DatabaseError(u"无法打开数据库文件！"_s + obstacle);
    }
}

/// Nothing can change during a read there, and the engine need not create its own files. The content of a log
/// would be missing.
void SqliteConnection::openSealed()
{
    if (QFileInfo(m_location + u"-wal"_s).size() > 0)
        throw DatabaseError(u"磁盘是只读的，数据库旁的日志（-wal）无法并入，"
                            "请把两个文件一起复制到可写的文件夹中打开！"_s);
    open(u"file:%1?immutable=1"_s.arg(QString::fromLatin1(QUrl::toPercentEncoding(m_location, "/"))),
         Missing::IsAnError);
    configure(Missing::IsAnError);
}

void SqliteConnection::open(const QString &location, Missing missing)
{
    sqlite3 *handle = nullptr;
    const PrivateFiles masked;
    const int result = sqlite3_open_v2(location.toUtf8().constData(), &handle, openFlags(missing), nullptr);
    m_statements.reset();
    m_handle.reset(handle);
    if (result != SQLITE_OK)
        fail();
    // The engine resolves links in its file name.
    m_path = isPlainFile(location) ? QFileInfo(location).absoluteFilePath()
                                   : QString::fromUtf8(sqlite3_db_filename(handle, "main"));
    m_file = FileIdentity::of(m_path);
}

SqliteConnection::~SqliteConnection()
{
    rollback();
    m_statements.reset();
}

void SqliteConnection::configure(Missing missing)
{
    sqlite3_extended_result_codes(m_handle.get(), 1);
    distrust(m_handle.get());
    setLockTimeout(5000);
    registerFunctions(m_handle.get());
    m_statements = std::make_unique<StatementCache>(m_handle.get());
    // Reads the header: a file that is no database fails here.
    const RowBlock tables = queryNative("select count(*), sum(name='host_schema') from sqlite_master");
    const bool isNew = missing == Missing::IsCreated && tables.cell(0, 0) == "0";
    const bool isOurs = tables.cell(0, 1) == "1";
    // Four times the usual size: a long list reads fewer pages and descends fewer levels, and the file is 15
    // % smaller.
    if (isNew)
        run("pragma page_size=16384");
    // A database of another program is only read.
    if ((isNew || isOurs) && !isReadOnly())
        run("pragma journal_mode=wal");
    run("pragma synchronous=full; pragma temp_store=memory; pragma cache_size=-65536");
    // The engine opens the log with the first statement that reads.
    run("select 1 from sqlite_master");
    m_log = log();
}

FileIdentity SqliteConnection::log() const
{
    if (m_path.isEmpty())
        return {};
    const char *path = sqlite3_filename_wal(sqlite3_db_filename(m_handle.get(), "main"));
    return FileIdentity::of(QFile::decodeName(path));
}

/// Another program may have upgraded the tables since the catalog was read: then a failed statement is tried
/// once more. A failed statement has changed nothing.
template<class Run> auto SqliteConnection::runTranslated(const SqlText &statement, Run run)
{
    try {
        return runPrepared(statement, run);
    } catch (const DatabaseError &) {
        if (!refreshCatalog())
            throw;
    }
    m_statements->clear();
    return runPrepared(statement, run);
}

template<class Run> auto SqliteConnection::runPrepared(const SqlText &statement, Run run)
{
    const Catalog &tables = catalog();
    const auto shape = StatementShape::of(statement);
    const Translation *known = shape ? m_translations.find(*shape, dialect(), tables) : nullptr;
    const std::optional<Translation> own = known ? std::nullopt : std::optional(translated(statement));
    const Translation &translation = known ? *known : *own;
    const std::vector<StatementShape::Value> noValues;
    const std::vector<StatementShape::Value> &values = known ? shape->values() : noValues;
    const CachedStatement prepared = m_statements->prepare(bestSql(translation, values));
    bindValues(prepared.get(), values);
    return run(translation, prepared.get());
}

/// The counts take a hundredth of what is saved.
const QByteArray &SqliteConnection::bestSql(const Translation &translation,
                                            const std::vector<StatementShape::Value> &values)
{
    return translation.bestSql([&](const QByteArray &text) -> CountWithin {
        const CachedStatement count = m_statements->prepare(text);
        bindValues(count.get(), values);
        if (sqlite3_step(count.get()) != SQLITE_ROW)
            fail();
        return {sqlite3_column_int64(count.get(), 0), sqlite3_column_int64(count.get(), 1)};
    });
}

RowBlock SqliteConnection::query(const SqlText &statement)
{
    return runTranslated(statement, [this](const Translation &translation, sqlite3_stmt *prepared) {
        if (translation.kind != StatementKind::Select)
            throw DatabaseError(u"此处只能使用查询语句（select）！"_s);
        return readRows(m_handle.get(), prepared, translation.columns, countsFor(translation));
    });
}

/// They are read in a separate snapshot from the rows that follow.
ListCounts SqliteConnection::countsFor(const Translation &translation)
{
    return {translation.counts, [this](const QByteArray &sql, std::vector<Column> columns) {
                return readRows(m_handle.get(), m_statements->prepare(sql).get(), std::move(columns));
            }};
}

qint64 SqliteConnection::execute(const SqlText &statement)
{
    return runTranslated(statement, [this](const Translation &translation, sqlite3_stmt *prepared) -> qint64 {
        if (translation.kind != StatementKind::Select && !inTransaction())
            requireSameFile();
        int result = sqlite3_step(prepared);
        while (result == SQLITE_ROW)
            result = sqlite3_step(prepared);
        if (result != SQLITE_DONE)
            fail();
        return translation.kind == StatementKind::Select ? 0 : sqlite3_changes64(m_handle.get());
    });
}

void SqliteConnection::insertRows(const QString &table, const RowBlock &rows)
{
    QByteArray names;
    QByteArray marks;
    for (const Column &column : rows.columns()) {
        names += (names.isEmpty() ? "\"" : ",\"") + column.name.toUtf8() + '"';
        marks += marks.isEmpty() ? "?" : ",?";
    }
    Transaction transaction(*this);
    const CachedStatement prepared =
        m_statements->prepare("insert into \"" + table.toUtf8() + "\"(" + names + ") values(" + marks + ')');
    for (qsizetype row = 0; row < rows.rowCount(); ++row) {
        bindRow(prepared.get(), rows, row);
        if (sqlite3_step(prepared.get()) != SQLITE_DONE)
            fail();
        sqlite3_reset(prepared.get());
    }
    transaction.commit();
}

qint64 SqliteConnection::insertRow(const QString &table, const RowBlock &row, const NewBlob &blob)
{
    QByteArray names;
    QByteArray marks;
    const auto add = [&](const QString &name) {
        names += (names.isEmpty() ? "\"" : ",\"") + name.toUtf8() + '"';
        marks += marks.isEmpty() ? "?" : ",?";
    };
    for (const Column &column : row.columns())
        add(column.name);
    if (blob.device)
        add(blob.column);
    Transaction transaction(*this);
    const CachedStatement prepared =
        m_statements->prepare("insert into \"" + table.toUtf8() + "\"(" + names + ") values(" + marks + ')');
    bindRow(prepared.get(), row, 0);
    if (blob.device && sqlite3_bind_zeroblob64(prepared.get(), row.columnCount() + 1,
                                               static_cast<sqlite3_uint64>(blob.device->size())) != SQLITE_OK)
        fail();
    if (sqlite3_step(prepared.get()) != SQLITE_DONE)
        fail();
    const qint64 key = sqlite3_last_insert_rowid(m_handle.get());
    if (blob.device)
        SqliteBlob(m_handle.get(), {table, blob.column}, key, SqliteBlob::Access::Write).fill(*blob.device);
    transaction.commit();
    return key;
}

void SqliteConnection::readBlob(const BlobColumn &column, qint64 key, const PieceTaker &take)
{
    SqliteBlob(m_handle.get(), column, key, SqliteBlob::Access::Read).read(take);
}

void SqliteConnection::readTable(const QString &table, const QStringList &columns, const BlockTaker &take)
{
    const Catalog::Table *known = catalog().table(table);
    std::vector<Column> described;
    for (const QString &name : columns) {
        const Column *column = known ? known->column(name) : nullptr;
        if (!column)
            throw DatabaseError(u"列 %1.%2 不存在"_s.arg(table, name));
        described.push_back(*column);
    }
    const QByteArray names = columns.join(u"\",\""_s).toUtf8();
    const CachedStatement prepared =
        m_statements->prepare("select \"" + names + "\" from \"" + table.toUtf8() + '"');
    readStoredRows(m_handle.get(), prepared.get(), described, take);
}

void SqliteConnection::executeNative(const QByteArray &script)
{
    m_catalogCookie = -1;
    run(script.constData());
}

RowBlock SqliteConnection::queryNative(const QByteArray &statement)
{
    const CachedStatement prepared = m_statements->prepare(statement);
    std::vector<Column> columns;
    for (int at = 0; at < sqlite3_column_count(prepared.get()); ++at)
        columns.push_back({QString::fromUtf8(sqlite3_column_name(prepared.get(), at)), ColumnType::Text});
    return readRows(m_handle.get(), prepared.get(), std::move(columns));
}

void SqliteConnection::begin(Flush)
{
    if (inTransaction())
        throw DatabaseError(u"上一个事务尚未结束！"_s);
    requireSameFile();
    run("begin immediate");
}

void SqliteConnection::beginReading()
{
    if (inTransaction())
        throw DatabaseError(u"上一个事务尚未结束！"_s);
    // The engine takes its snapshot only with the first statement.
    try {
        run("begin; select 1 from sqlite_master");
    } catch (const DatabaseError &) {
        rollback();
        throw;
    }
}

void SqliteConnection::commit()
{
    requireSameFile();
    run("commit");
}

void SqliteConnection::requireSameFile()
{
    if (m_path.isEmpty())
        return;
    int moved = 0;
    sqlite3_file_control(m_handle.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    if (moved != 0 || FileIdentity::of(m_path) != m_file || log() != m_log)
        throw DatabaseError(u"数据库文件已被移动、删除或替换，未保存！"
                            "请记下未保存的内容，重新启动程序后再保存：%1"_s.arg(m_path));
}

void SqliteConnection::rollback() noexcept
{
    if (inTransaction())
        sqlite3_exec(m_handle.get(), "rollback", nullptr, nullptr, nullptr);
}

bool SqliteConnection::inTransaction() const
{
    return sqlite3_get_autocommit(m_handle.get()) == 0;
}

bool SqliteConnection::isReadOnly() const
{
    return sqlite3_db_readonly(m_handle.get(), "main") == 1;
}

const Dialect &SqliteConnection::dialect() const
{
    return sqliteDialect();
}

const DdlWords &SqliteConnection::ddlWords() const
{
    return sqliteWords();
}

const Catalog &SqliteConnection::catalog()
{
    if (m_catalogCookie < 0)
        refreshCatalog();
    return m_catalog;
}

void SqliteConnection::setLockTimeout(int milliseconds)
{
    sqlite3_busy_timeout(m_handle.get(), milliseconds);
}

Translation SqliteConnection::translated(const SqlText &statement)
{
    try {
        return translate(statement, dialect(), catalog());
    } catch (const DialectError &error) {
        throw DatabaseError(error.message());
    }
}

bool SqliteConnection::refreshCatalog()
{
    const int cookie = schemaCookie();
    if (cookie == m_catalogCookie)
        return false;
    m_translations.clear();
    m_catalog = readCatalog(*this);
    m_catalogCookie = cookie;
    return true;
}

int SqliteConnection::schemaCookie()
{
    return queryNative("pragma schema_version").value(0, 0).toInt();
}

void SqliteConnection::run(const char *statement)
{
    if (sqlite3_exec(m_handle.get(), statement, nullptr, nullptr, nullptr) != SQLITE_OK)
        fail();
}

void SqliteConnection::fail()
{
    throw DatabaseError(m_handle ? sqliteErrorText(m_handle.get()) : u"内存不足，操作未完成！"_s);
}

} // namespace ebtq::db
