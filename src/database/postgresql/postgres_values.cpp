#include "database/postgresql/postgres_values.h"

#include "database/connection.h"

#include <QFileDevice>

#include <limits>

using namespace Qt::StringLiterals;

namespace ebtq::db {

void PostgresValues::addText(std::string_view text)
{
    m_texts.emplace_back(text.data(), static_cast<qsizetype>(text.size()));
    add(m_texts.back().constData(), m_texts.back().size(), false);
}

void PostgresValues::addBytes(QIODevice &device)
{
    const qint64 size = device.size();
    if (size > std::numeric_limits<int>::max())
        throw DatabaseError(u"文件太大，无法保存到数据库！"_s);
    auto *file = qobject_cast<QFileDevice *>(&device);
    if (const uchar *mapped = file && size > 0 ? file->map(0, size) : nullptr)
        return add(reinterpret_cast<const char *>(mapped), size, true);
    m_texts.push_back(device.read(size));
    if (m_texts.back().size() != size)
        throw DatabaseError(u"文件在读取时发生了变化，没有保存！"_s);
    add(m_texts.back().constData(), size, true);
}

void PostgresValues::add(const char *value, qsizetype length, bool isBinary)
{
    m_values.push_back(value);
    m_lengths.push_back(static_cast<int>(length));
    m_formats.push_back(isBinary ? 1 : 0);
}

} // namespace ebtq::db
