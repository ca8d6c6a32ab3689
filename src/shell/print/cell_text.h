#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <QStringList>

namespace ebtq::shell {

/// Breaks the text of a cell into lines. Paper has no tool tip that shows a cut text, so cells wrap; one that
/// would fill the page ends in "…".
class CellText
{
public:
    explicit CellText(const QFont &font);

    [[nodiscard]] const QFont &font() const { return m_font; }
    [[nodiscard]] double lineHeight() const { return m_metrics.lineSpacing(); }
    /// On one line.
    [[nodiscard]] double width(const QString &text) const { return m_metrics.horizontalAdvance(text); }
    [[nodiscard]] QStringList lines(const QString &text, double width) const;
    [[nodiscard]] qsizetype lineCount(const QString &text, double width) const;

    static constexpr int mostLines = 6;

private:
    [[nodiscard]] bool fits(const QString &text, double width) const;
    [[nodiscard]] QStringList wrapped(QString text, double width) const;

    QFont m_font;
    QFontMetricsF m_metrics;
    double m_widest; ///< of a letter
};

} // namespace ebtq::shell
