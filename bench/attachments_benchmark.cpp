#include "agency.h"
#include "archive/one_file_archive.h"
#include "benchmarks.h"
#include "database/dialect/dialect.h"
#include "measure.h"

#include <QFile>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <libpq-fe.h>
#include <zip.h>

#include <algorithm>
#include <utility>
#include <vector>

#include <unistd.h>

namespace ebtq::bench {

namespace {

constexpr qsizetype fileSize = 50 << 20;

void require(bool holds, const char *what)
{
    if (!holds)
        throw Failure(QString::fromLatin1(what));
}

/// That no compression makes smaller, as photos.
QByteArray randomBytes()
{
    QByteArray bytes(fileSize, Qt::Uninitialized);
    QRandomGenerator random(1);
    random.fillRange(reinterpret_cast<quint32 *>(bytes.data()), fileSize / qsizetype(sizeof(quint32)));
    return bytes;
}

void writeDown(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
                ::fsync(file.handle()) == 0,
            "cannot write a file");
}

qint64 statusLine(const char *name)
{
    QFile file(QStringLiteral("/proc/self/status"));
    require(file.open(QIODevice::ReadOnly), "cannot read the process's state");
    const QByteArray text = file.readAll();
    const qsizetype at = text.indexOf(name);
    return text.mid(at + qstrlen(name)).simplified().split(' ').value(0).toLongLong() * 1024;
}

/// The most memory that is held beyond what was held before, as a share of the file.
double peakOf(const std::function<void()> &work)
{
    QFile reset(QStringLiteral("/proc/self/clear_refs"));
    require(reset.open(QIODevice::WriteOnly) && reset.write("5") == 1, "cannot reset the peak of memory");
    reset.close();
    const qint64 before = statusLine("VmRSS:");
    work();
    return static_cast<double>(statusLine("VmHWM:") - before) / static_cast<double>(fileSize);
}

/// That compression makes much smaller, as plain texts.
QByteArray textBytes()
{
    QByteArray bytes;
    bytes.reserve(fileSize + 64);
    for (int line = 0; bytes.size() < fileSize; ++line)
        bytes += "listing " + QByteArray::number(line * 7919LL % 100003) + " sold for " +
                 QByteArray::number(line) + '\n';
    bytes.truncate(fileSize);
    return bytes;
}

/// Through libzip alone, as it compresses unless it is told otherwise.
void packBare(const QString &source, const QString &target)
{
    zip_t *zip = zip_open(QFile::encodeName(target).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    require(zip, "cannot make an archive");
    zip_source_t *from = zip_source_file(zip, QFile::encodeName(source).constData(), 0, -1);
    require(zip_file_add(zip, "a.bin", from, 0) == 0 && zip_close(zip) == 0, "cannot write an archive");
}

void unpackBare(const QString &archive, const QString &target)
{
    zip_t *zip = zip_open(QFile::encodeName(archive).constData(), ZIP_RDONLY, nullptr);
    require(zip, "cannot open an archive");
    zip_file_t *member = zip_fopen_index(zip, 0, 0);
    require(member, "cannot open the file of an archive");
    QFile to(target);
    require(to.open(QIODevice::WriteOnly), "cannot write a file");
    std::vector<char> piece(1 << 20);
    while (const zip_int64_t read = zip_fread(member, piece.data(), piece.size()))
        require(read > 0 && to.write(piece.data(), read) == read, "cannot unpack");
    zip_fclose(member);
    zip_discard(zip);
}

struct Measure
{
    QString name;
    double ratio;
    double limit;
};

/// The archive of a file made and read, against libzip alone.
std::vector<Measure> archiveMeasures(const QString &kind, const QByteArray &bytes, int rounds)
{
    const QTemporaryDir folder;
    const QString source = folder.filePath(QStringLiteral("a.bin"));
    const QString archive = folder.filePath(QStringLiteral("archive"));
    const QString bare = folder.filePath(QStringLiteral("bare"));
    const QString target = folder.filePath(QStringLiteral("out"));
    writeDown(source, bytes);
    const double peak = peakOf([&] { archive::pack(source, archive); });
    const auto unpacks = [&] {
        QFile to(target);
        require(to.open(QIODevice::WriteOnly), "cannot write a file");
        archive::unpack(archive, to, fileSize);
    };
    const double openPeak = peakOf(unpacks);
    const auto times = medians({{"bare", [&] { packBare(source, bare); }},
                                {"ours", [&] { archive::pack(source, archive); }},
                                {"bare open", [&] { unpackBare(bare, target); }},
                                {"our open", unpacks}},
                               rounds);
    return {{QStringLiteral("pack_") + kind, times[1] / times[0], 1.5},
            {QStringLiteral("unpack_") + kind, times[3] / times[2], 2.0},
            {QStringLiteral("memory_") + kind, std::max(peak, openPeak), 2.0}};
}

/// A file in a row of the agency, and the bare ways to bring it there and back.
class Attachment
{
public:
    explicit Attachment(Agency &agency)
        : m_agency(agency)
    {
        writeDown(source(), m_bytes);
        prepare();
    }

    void add()
    {
        const auto rows = recordset("SELECT top 1 * FROM pubAttach ");
        rows->AddNew();
        rows->SetField(QStringLiteral("filename"), QStringLiteral("a.jpg"));
        rows->SetFieldFromFile(QStringLiteral("contents"), source());
        rows->Update();
    }
    void open()
    {
        QFile file(m_folder.filePath(QStringLiteral("opened")));
        require(file.open(QIODevice::WriteOnly), "cannot write a file");
        recordset("SELECT * FROM pubAttach where filename='a.jpg'")
            ->WriteField(QStringLiteral("contents"), file);
        require(file.size() == fileSize, "not the whole file");
    }
    void empty()
    {
        m_agency.database().execute(QStringLiteral("delete from pubAttach"));
        if (!m_agency.isOnServer())
            m_agency.database().executeNative("pragma wal_checkpoint(truncate)");
    }
    void addBare()
    {
        m_agency.isOnServer() ? insertBare() : writeDown(m_folder.filePath(QStringLiteral("bare")), m_bytes);
    }
    void openBare()
    {
        const QString copy = m_folder.filePath(QStringLiteral("copy"));
        QFile::remove(copy);
        if (m_agency.isOnServer())
            selectBare(copy);
        else
            require(QFile::copy(source(), copy), "cannot copy a file");
    }

private:
    using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;

    [[nodiscard]] QString source() const { return m_folder.filePath(QStringLiteral("a.jpg")); }
    std::unique_ptr<Recordset> recordset(const char *sql)
    {
        return m_agency.app().Db().CreateQuery(SqlText(QString::fromLatin1(sql)))->Open();
    }
    void prepare()
    {
        if (m_agency.isOnServer())
            m_agency.database().executeNative("create temp table bare(contents bytea);"
                                              "alter table bare alter contents set storage external");
    }
    void insertBare()
    {
        const char *value = m_bytes.constData();
        const int length = static_cast<int>(m_bytes.size());
        const int format = 1;
        pg_conn *handle = m_agency.server().handle();
        const Result cleared(PQexec(handle, "truncate bare"), &PQclear);
        const Result inserted(PQexecParams(handle, "insert into \"pubAttach\"(contents) values($1)", 1,
                                           nullptr, &value, &length, &format, 1),
                              &PQclear);
        require(PQresultStatus(inserted.get()) == PGRES_COMMAND_OK, PQerrorMessage(handle));
    }
    void selectBare(const QString &path)
    {
        pg_conn *handle = m_agency.server().handle();
        const Result selected(PQexecParams(handle,
                                           "select contents from \"pubAttach\" where filename='a.jpg'", 0,
                                           nullptr, nullptr, nullptr, nullptr, 1),
                              &PQclear);
        require(PQntuples(selected.get()) == 1, PQerrorMessage(handle));
        QFile file(path);
        require(file.open(QIODevice::WriteOnly) && file.write(PQgetvalue(selected.get(), 0, 0),
                                                              PQgetlength(selected.get(), 0, 0)) == fileSize,
                "cannot write a file");
    }

    Agency &m_agency;
    QTemporaryDir m_folder;
    QByteArray m_bytes = randomBytes();
};

} // namespace

int attachmentsBenchmark(const Options &options)
{
    Options small = options;
    small.rows = 10;
    Agency agency(small);
    Attachment attachment(agency);
    const auto empty = [&] { attachment.empty(); };
    const double addPeak = peakOf([&] { attachment.add(); }); // first: what is taken once is kept
    const double openPeak = peakOf([&] { attachment.open(); });
    const auto adding =
        medians({{"bare", [&] { attachment.addBare(); }, empty}, {"ours", [&] { attachment.add(); }, empty}},
                options.rounds);
    attachment.empty();
    attachment.add();
    const auto opening = medians(
        {{"bare", [&] { attachment.openBare(); }}, {"ours", [&] { attachment.open(); }}}, options.rounds);
    const bool isOnServer = agency.isOnServer();
    std::vector<Measure> measures{{QStringLiteral("add"), adding[1] / adding[0], isOnServer ? 1.3 : 1.5},
                                  {QStringLiteral("open"), opening[1] / opening[0], isOnServer ? 1.3 : 2.0},
                                  {QStringLiteral("add_memory"), addPeak, 2.0},
                                  {QStringLiteral("open_memory"), openPeak, 2.0}};
    for (const auto &[kind, bytes] : {std::pair(QStringLiteral("random"), randomBytes()),
                                      std::pair(QStringLiteral("text"), textBytes())}) {
        const auto more = archiveMeasures(kind, bytes, options.rounds);
        measures.insert(measures.end(), more.begin(), more.end());
    }
    QJsonObject figures{{QStringLiteral("benchmark"), QStringLiteral("attachments")},
                        {QStringLiteral("engine"), QString::fromLatin1(agency.database().dialect().name)},
                        {QStringLiteral("add_ms"), rounded(adding[1])},
                        {QStringLiteral("open_ms"), rounded(opening[1])}};
    double worst = 0;
    for (const auto &[name, ratio, limit] : measures) {
        figures.insert(name, rounded(ratio));
        worst = std::max(worst, ratio / limit);
    }
    figures.insert(QStringLiteral("ratio"), rounded(worst));
    print(figures);
    return 0;
}

} // namespace ebtq::bench
