#include "host/pickers/list_picker.h"

#include "host/pickers/list_query.h"
#include "host/text_judge.h"

#include <QScopeGuard>

namespace ebtq::host {

ListPicker::ListPicker(db::Connection &connection, PanelPresenter &presenter, const ListDefinition &list)
    : m_connection(connection)
    , m_presenter(presenter)
    , m_list(list)
{}

bool ListPicker::Show(int left, int top, QString &text, QVariant &value, int /*flag*/,
                      const QString & /*unused*/)
{
    Panel panel = panelOf(m_list, m_parameters, m_connection.query(rowsToShow(m_list)), text);
    panel.left = left;
    panel.top = top;
    const auto row = m_presenter.choose(panel);
    if (!row)
        return false;
    const Match match = matchOf(panel.rows, *row, panel.rows.columnNamed(m_list.valueColumn),
                                panel.rows.columnNamed(m_list.textColumn));
    value = match.value;
    text = match.text;
    return true;
}

bool ListPicker::Validate(const QString & /*unused*/, const QString &valueField, const QString &textField,
                          const QString &typedText, QVariant &value, QString &text)
{
    const RowBlock rows = m_connection.query(rowsThatMatch(m_list, m_parameters, typedText));
    if (rows.rowCount() == 0)
        return false;
    const Match match = matchOf(rows, 0, columnFor(rows, valueField, rows.columnNamed(m_list.valueColumn)),
                                columnFor(rows, textField, rows.columnNamed(m_list.textColumn)));
    value = match.value;
    text = match.text;
    return true;
}

bool AbsentPicker::Validate(const QString & /*unused*/, const QString & /*valueField*/,
                            const QString & /*textField*/, const QString & /*typedText*/, QVariant &value,
                            QString &text)
{
    value = QVariant();
    text.clear();
    return false;
}

OneUsePicker::OneUsePicker(std::unique_ptr<HostPicker> picker, ReportFailure report)
    : m_picker(std::move(picker))
    , m_report(std::move(report))
{}

template<class Use> bool OneUsePicker::use(Use work)
{
    const auto emptied = qScopeGuard([this] { m_picker->Parameters().Clear(); });
    try {
        return work();
    } catch (const std::exception &failure) {
        m_report(QString::fromUtf8(failure.what()));
        return false;
    }
}

bool OneUsePicker::Show(int left, int top, QString &text, QVariant &value, int flag, const QString &unused)
{
    return use([&] { return m_picker->Show(left, top, text, value, flag, unused); });
}

bool OneUsePicker::Validate(const QString &unused, const QString &valueField, const QString &textField,
                            const QString &typedText, QVariant &value, QString &text)
{
    // The caller may hand the very text in that is to be filled.
    const QString wanted = typedText;
    value = QVariant();
    text.clear();
    return use([&] { return m_picker->Validate(unused, valueField, textField, wanted, value, text); });
}

} // namespace ebtq::host
