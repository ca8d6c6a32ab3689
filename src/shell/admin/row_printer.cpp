#include "shell/admin/row_printer.h"

#include <string>

namespace ebtq::admin {

namespace {

constexpr size_t flushedSize = size_t(1) << 16;

void appendEscaped(std::string_view text, std::string &out)
{
    for (size_t mark = text.find_first_of("\t\n\r\\"); mark != std::string_view::npos;
         mark = text.find_first_of("\t\n\r\\")) {
        const char c = text[mark];
        out.append(text.substr(0, mark));
        out += '\\';
        out += c == '\t' ? 't' : c == '\n' ? 'n' : c == '\r' ? 'r' : '\\';
        text.remove_prefix(mark + 1);
    }
    out.append(text);
}

void appendHexadecimal(std::string_view bytes, std::string &out)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        out += digits[byte >> 4];
        out += digits[byte & 15];
    }
}

void appendCell(const RowBlock &rows, qsizetype row, int column, std::string &out)
{
    if (rows.isNull(row, column))
        out += "NULL";
    else if (rows.columns()[static_cast<size_t>(column)].type == ColumnType::Binary)
        appendHexadecimal(rows.cell(row, column), out);
    else
        appendEscaped(rows.cell(row, column), out);
}

void write(std::string &text, std::FILE *stream)
{
    std::fwrite(text.data(), 1, text.size(), stream);
    text.clear();
}

} // namespace

void printRows(const RowBlock &rows, std::FILE *stream)
{
    std::string text;
    for (qsizetype row = 0; row < rows.rowCount(); ++row) {
        for (int column = 0; column < rows.columnCount(); ++column) {
            if (column > 0)
                text += '\t';
            appendCell(rows, row, column, text);
        }
        text += '\n';
        if (text.size() >= flushedSize)
            write(text, stream);
    }
    write(text, stream);
}

} // namespace ebtq::admin
