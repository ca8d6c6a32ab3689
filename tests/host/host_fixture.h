#pragma once

#include "host/application.h"

#include <QPoint>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <deque>

namespace ebtq::test {

/// Answers panels and calendars from a script and keeps what was shown. A panel nobody scripted fails the
/// test.
class ScriptedPanels : public host::PanelPresenter
{
public:
    ~ScriptedPanels() override;

    /// The row whose first shown column has that text; empty leaves the panel without a choice.
    void willChoose(const QString &firstColumn) { m_choices.push_back(firstColumn); }
    void willChooseDate(std::optional<QDate> date) { m_dates.push_back(date); }

    std::optional<qsizetype> choose(const host::Panel &panel) override;
    std::optional<QDate> chooseDate(const QDate &preset, int left, int top) override;

    /// The texts of the last panel's first shown column.
    [[nodiscard]] QStringList shownRows() const { return m_shownRows; }
    [[nodiscard]] QStringList shownCaptions() const { return m_captions; }
    [[nodiscard]] QString currentRow() const { return m_currentRow; }
    [[nodiscard]] QPoint place() const { return m_place; }
    [[nodiscard]] QDate presetDate() const { return m_presetDate; }
    [[nodiscard]] int levelCodeColumn() const { return m_levelCodeColumn; }
    [[nodiscard]] int choosableColumn() const { return m_choosableColumn; }

private:
    std::deque<QString> m_choices;
    std::deque<std::optional<QDate>> m_dates;
    QStringList m_shownRows;
    QStringList m_captions;
    QString m_currentRow;
    QPoint m_place;
    QDate m_presetDate;
    int m_levelCodeColumn = -1;
    int m_choosableColumn = -1;
};

/// A signed-in host over a database in memory with a handful of dictionary rows.
class HostTest : public ::testing::Test
{
protected:
    HostTest();

    void execute(const char16_t *statement);
    [[nodiscard]] QVariant value(const char16_t *statement);

    QTemporaryDir m_folder;
    std::unique_ptr<db::Connection> m_connection;
    ScriptedPanels m_panels;
    QStringList m_failures; ///< reported by the host
    std::unique_ptr<host::Application> m_host;
};

inline const QString agentId = u"0A1B2C3D-0000-4000-8000-0123456789AB"_qs;
inline const QDate loginDate = QDate(2019, 11, 24); ///< never the day of the run

} // namespace ebtq::test

/// How a failed comparison shows a text; found by GoogleTest beside the type.
inline void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.toStdString() << '"';
}
