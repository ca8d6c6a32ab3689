#include "host/application.h"

#include "host/bill_numbers.h"
#include "host/host_database.h"
#include "host/host_parameters.h"
#include "host/pickers/field_help.h"
#include "host/pickers/list_picker.h"
#include "host/rights.h"
#include "host/text_judge.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace ebtq::host {

namespace {

class FormStylerByFunction : public HostFormStyler
{
public:
    void Apply(QObject &form) override
    {
        if (apply)
            apply(form);
    }
    std::function<void(QObject &)> apply;
};

} // namespace

struct Application::Private
{
    Private(db::Connection &openConnection, User user, Settings settings, PanelPresenter &panels)
        : connection(openConnection)
        , presenter(panels)
        , database(openConnection)
        , session(std::move(user), std::move(settings))
        , printEnvironment(session)
    {}

    /// Runs an operation whose failure is told by LastError and by false.
    template<class Work> bool attempt(Work work)
    {
        lastError.Description.clear();
        try {
            return work();
        } catch (const std::exception &failure) {
            lastError.Description = QString::fromUtf8(failure.what());
            return false;
        }
    }
    /// The same for one whose caller shows nothing.
    template<class Work> bool attemptAndReport(Work work)
    {
        const bool done = attempt(work);
        if (!lastError.Description.isEmpty() && reportFailure)
            reportFailure(lastError.Description);
        return done;
    }
    void fail(const QString &text)
    {
        lastError.Description = text;
        if (reportFailure)
            reportFailure(text);
    }
    std::unique_ptr<HostPicker> makePicker(const QString &name);

    db::Connection &connection;
    PanelPresenter &presenter;
    HostDatabase database;
    UserSession session;
    PrintEnvironment printEnvironment;
    FormStylerByFunction formStyler;
    HostErrorInfo lastError;
    PickerFactory pickerFactory;
    ReportFailure reportFailure;
    QHash<QString, std::shared_ptr<HostPicker>> pickers; ///< by case-folded name
};

std::unique_ptr<HostPicker> Application::Private::makePicker(const QString &name)
{
    if (pickerFactory) {
        if (auto picker = pickerFactory(name))
            return picker;
    }
    if (const auto list = listNamed(name))
        return std::make_unique<ListPicker>(connection, presenter, *list);
    return std::make_unique<AbsentPicker>();
}

Application::Application(db::Connection &connection, User user, Settings settings, PanelPresenter &presenter)
    : d(std::make_unique<Private>(connection, std::move(user), std::move(settings), presenter))
{}

Application::~Application() = default;

const User &Application::user() const
{
    return d->session.user();
}

void Application::setPickerFactory(PickerFactory factory)
{
    d->pickerFactory = std::move(factory);
    d->pickers.clear();
}

void Application::setPrintContext(QObject *context)
{
    d->printEnvironment.setPrintContext(context);
}

void Application::setFormStyler(std::function<void(QObject &)> apply)
{
    d->formStyler.apply = std::move(apply);
}

void Application::setFailureReport(std::function<void(const QString &)> report)
{
    d->reportFailure = std::move(report);
}

void Application::setChangeReport(std::function<void(const QString &)> report)
{
    d->database.setChangeReport(std::move(report));
}

HostDb &Application::Db()
{
    return d->database;
}

HostPrintEnv &Application::PrintEnv()
{
    return d->printEnvironment;
}

HostErrorInfo Application::LastError() const
{
    return d->lastError;
}

std::unique_ptr<HostRights> Application::Rights(int moduleId)
{
    return std::make_unique<ModuleRights>(d->connection, user().id, moduleId);
}

HostParameter Application::SystemParameter(int group, const QVariant &key)
{
    return {parameterText(d->connection, {}, group, key)};
}

HostParameter Application::UserParameter(int group, const QVariant &key)
{
    return {parameterText(d->connection, user().id, group, key)};
}

bool Application::ShowHelp(const QString &key, const QVariant &field, const QVariant &left,
                           const QVariant &top, int /*flag*/)
{
    return d->attemptAndReport([&] {
        auto *object = field.value<QObject *>();
        if (!object)
            throw Failure(u"帮助列表“%1”没有对应的输入框！"_s.arg(key));
        FieldHelp help(d->connection, d->presenter, d->session.LoginDate());
        return help.show(key, *object, {left.toInt(), top.toInt()});
    });
}

bool Application::JudgeText(const QString &base, const QString &valueField, const QString &textField,
                            const QString &typedText, QVariant &value, QString &text)
{
    // The caller may hand the very text in that is to be filled.
    const QString wanted = typedText;
    value = QVariant();
    text.clear();
    return d->attemptAndReport([&] {
        if (const auto match = judge(d->connection, base, valueField, textField, wanted)) {
            value = match->value;
            text = match->text;
        }
        return true;
    });
}

bool Application::NewBillCode(int moduleId, const QDate &date, QString &code, bool take)
{
    return d->attempt([&] {
        code = take ? previewBillCode(d->connection, moduleId, date)
                    : issueBillCode(d->connection, moduleId, date);
        return true;
    });
}

HostSession &Application::Session()
{
    return d->session;
}

HostPicker &Application::Picker(const QString &name)
{
    std::shared_ptr<HostPicker> &picker = d->pickers[name.toCaseFolded()];
    if (!picker)
        picker = std::make_shared<OneUsePicker>(d->makePicker(name),
                                                [this](const QString &text) { d->fail(text); });
    return *picker;
}

HostFormStyler &Application::FormStyler()
{
    return d->formStyler;
}

} // namespace ebtq::host
