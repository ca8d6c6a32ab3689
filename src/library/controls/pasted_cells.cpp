#include "library/controls/pasted_cells.h"

namespace ebtq {

namespace {

constexpr QChar quote = u'"';

/// Reads one block from its beginning to its end.
class PastedBlock
{
public:
    explicit PastedBlock(QStringView text)
        : m_text(text)
    {}
    std::vector<QStringList> read()
    {
        while (m_at < m_text.size()) {
            m_rows.emplace_back();
            readRow(m_rows.back());
        }
        return std::move(m_rows);
    }

private:
    [[nodiscard]] QChar next() const { return m_at < m_text.size() ? m_text[m_at] : QChar(u'\n'); }
    [[nodiscard]] bool isEnd() const { return next() == u'\n' || next() == u'\r'; }
    void readRow(QStringList &row)
    {
        row.append(readCell());
        while (next() == u'\t') {
            ++m_at;
            row.append(readCell());
        }
        const bool isTwo = next() == u'\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == u'\n';
        m_at += isTwo ? 2 : 1;
    }
    QString readCell()
    {
        QString cell = next() == quote && isClosed() ? readQuoted() : QString();
        while (next() != u'\t' && !isEnd())
            cell += m_text[m_at++];
        return cell.replace(u'\r', u' ').replace(u'\n', u' ').replace(u'\t', u' ');
    }
    /// A quote that stands alone is a character like any other.
    [[nodiscard]] bool isClosed() const { return m_text.indexOf(quote, m_at + 1) >= 0; }
    /// Up to the quote that is not doubled.
    QString readQuoted()
    {
        QString cell;
        for (++m_at; m_at < m_text.size(); ++m_at) {
            if (m_text[m_at] == quote && (++m_at >= m_text.size() || m_text[m_at] != quote))
                break;
            cell += m_text[m_at];
        }
        return cell;
    }

    QStringView m_text;
    qsizetype m_at = 0;
    std::vector<QStringList> m_rows;
};

} // namespace

std::vector<QStringList> pastedCells(QStringView text)
{
    return PastedBlock(text).read();
}

} // namespace ebtq
