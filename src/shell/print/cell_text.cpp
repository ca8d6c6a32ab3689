#include "shell/print/cell_text.h"

#include <QTextLayout>

#include <algorithm>

namespace ebtq::shell {

namespace {

constexpr qsizetype mostLetters = 2000; // more than fits a cell

} // namespace

CellText::CellText(const QFont &font)
    : m_font(font)
    , m_metrics(font)
    , m_widest(std::max(m_metrics.horizontalAdvance(u'房'), m_metrics.horizontalAdvance(u'W')))
{}

/// Most cells are short; laying each of a hundred thousand rows out as a text of lines would take seconds.
bool CellText::fits(const QString &text, double width) const
{
    const auto breaks = [](QChar c) { return c == u'\n' || c == u'\r'; };
    const bool isShort = static_cast<double>(text.size()) * m_widest <= width;
    return (isShort || (text.size() <= mostLetters && this->width(text) <= width)) &&
           std::ranges::none_of(text, breaks);
}

qsizetype CellText::lineCount(const QString &text, double width) const
{
    return fits(text, width) ? 1 : lines(text, width).size();
}

QStringList CellText::lines(const QString &text, double width) const
{
    if (text.isEmpty() || fits(text, width))
        return {text};
    return wrapped(text.left(mostLetters), width);
}

QStringList CellText::wrapped(QString text, double width) const
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    text.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(text, m_font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        QString part = text.mid(line.textStart(), line.textLength());
        const bool isCut =
            lines.size() == mostLines - 1 && line.textStart() + line.textLength() < text.size();
        if (isCut)
            part = m_metrics.elidedText(part.trimmed() + text.mid(line.textStart() + line.textLength()),
                                        Qt::ElideRight, width);
        lines.append(part.replace(QChar::LineSeparator, u' ').trimmed());
        if (isCut)
            break;
    }
    layout.endLayout();
    return lines;
}

} // namespace ebtq::shell
