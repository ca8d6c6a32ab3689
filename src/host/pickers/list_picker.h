#pragma once

#include "contracts/host_contracts.h"
#include "database/connection.h"
#include "host/panel_presenter.h"
#include "host/pickers/list_definition.h"

#include <functional>

namespace ebtq::host {

/// Takes the text of a failure that the caller cannot be given.
using ReportFailure = std::function<void(const QString &)>;

/// A picker over a list definition. Its rows are plain, so Objects() gives none.
class ListPicker : public HostPicker
{
public:
    ListPicker(db::Connection &connection, PanelPresenter &presenter, const ListDefinition &list);

    [[nodiscard]] ParameterList &Parameters() override { return m_parameters; }
    bool Show(int left, int top, QString &text, QVariant &value, int flag, const QString &unused) override;
    [[nodiscard]] std::shared_ptr<const PickedRow> Objects() const override { return nullptr; }
    bool Validate(const QString &unused, const QString &valueField, const QString &textField,
                  const QString &typedText, QVariant &value, QString &text) override;
    [[nodiscard]] bool Ready(int /*flag*/) const override { return true; }

private:
    db::Connection &m_connection;
    PanelPresenter &m_presenter;
    ListDefinition m_list;
    ParameterList m_parameters;
};

/// A picker that is not there: never ready, finds nothing.
class AbsentPicker : public HostPicker
{
public:
    [[nodiscard]] ParameterList &Parameters() override { return m_parameters; }
    bool Show(int, int, QString &, QVariant &, int, const QString &) override { return false; }
    [[nodiscard]] std::shared_ptr<const PickedRow> Objects() const override { return nullptr; }
    bool Validate(const QString &, const QString &, const QString &, const QString &, QVariant &value,
                  QString &text) override;
    [[nodiscard]] bool Ready(int /*flag*/) const override { return false; }

private:
    ParameterList m_parameters;
};

/// What modules are given for every picker. Parameters count for one use: they are emptied behind each Show
/// and Validate, so that a "lock" set by one field cannot narrow the list of the next. Failures of the picker
/// within do not pass: they are reported, and the use ends as one without a choice or a match.
class OneUsePicker : public HostPicker
{
public:
    OneUsePicker(std::unique_ptr<HostPicker> picker, ReportFailure report);

    [[nodiscard]] ParameterList &Parameters() override { return m_picker->Parameters(); }
    bool Show(int left, int top, QString &text, QVariant &value, int flag, const QString &unused) override;
    [[nodiscard]] std::shared_ptr<const PickedRow> Objects() const override { return m_picker->Objects(); }
    bool Validate(const QString &unused, const QString &valueField, const QString &textField,
                  const QString &typedText, QVariant &value, QString &text) override;
    [[nodiscard]] bool Ready(int flag) const override { return m_picker->Ready(flag); }

private:
    template<class Use> bool use(Use work);

    std::unique_ptr<HostPicker> m_picker;
    ReportFailure m_report;
};

} // namespace ebtq::host
