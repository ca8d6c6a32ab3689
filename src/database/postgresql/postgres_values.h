#pragma once

#include <QByteArray>

#include <string_view>
#include <vector>

class QIODevice;

namespace ebtq::db {

/// The values of one statement's parameters, as libpq takes them. Texts are read as the types of their
/// columns.
class PostgresValues
{
public:
    [[nodiscard]] int count() const { return static_cast<int>(m_values.size()); }
    [[nodiscard]] const char *const *values() const { return m_values.data(); }
    [[nodiscard]] const int *lengths() const { return m_lengths.data(); }
    [[nodiscard]] const int *formats() const { return m_formats.data(); }

    void addNull() { add(nullptr, 0, false); }
    void addText(std::string_view text);
    /// All that the device gives; a file stays in the system's memory. The device outlives the statement.
    /// Throws DatabaseError when it cannot be read.
    void addBytes(QIODevice &device);

private:
    void add(const char *value, qsizetype length, bool isBinary);

    std::vector<QByteArray> m_texts;
    std::vector<const char *> m_values;
    std::vector<int> m_lengths;
    std::vector<int> m_formats;
};

} // namespace ebtq::db
