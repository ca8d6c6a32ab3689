#include "library/frame/module.h"

#include "contracts/null_conv.h"
#include "library/frame/statements.h"
#include "library/layout/form_status.h"

using namespace Qt::StringLiterals;

namespace ebtq {

QString applicationTitle()
{
    return u"EBTQ_S"_s;
}

Module::Module(const QString &name, Desktop &desktop)
    : Module(name, desktop, {name, applicationTitle()})
{}

Module::Module(QString name, Desktop &desktop, FailureNames failures)
    : m_name(std::move(name))
    , m_failures(std::move(failures))
    , m_desktop(desktop)
{}

Module::~Module() = default;

void Module::setBackColor(int color)
{
    if (m_backColor == color)
        return;
    m_backColor = color;
    Q_EMIT backColorChanged();
}

void Module::IDesignUI_Parameters(DesignParameters *parameters)
{
    const QString key = u"backcolor"_s;
    if (parameters && parameters->Exists(key))
        setBackColor(NullConv::ToLong(parameters->Item(key).Value));
}

void Module::sbGetFormStatus(const QString &pFile, bool pbOnlyColWidth)
{
    restoreForm(pFile, pbOnlyColWidth, m_controls, app());
}

bool Module::sbSaveFormStatus(const QString &pFile, bool pbOnlyColWidth) const
{
    return saveForm(pFile, pbOnlyColWidth, m_controls);
}

HostApp &Module::app() const
{
    if (!m_app)
        throw Failure(u"模块尚未初始化！"_s);
    return *m_app;
}

QString Module::trappedText(QStringView tag, const QString &description) const
{
    return m_failures.prefix + tag.toString() + description;
}

QString Module::failureText(QStringView tag, const std::exception &failure) const
{
    const QString description = QString::fromUtf8(failure.what());
    const bool isStatements = dynamic_cast<const StatementFailure *>(&failure);
    return isStatements && !m_failures.tagsStatements ? description : trappedText(tag, description);
}

void Module::reportTrapped(QStringView tag, const std::exception &failure)
{
    raiseError(failureText(tag, failure), FailureLevel, m_failures.title);
}

void Module::releaseDatabase()
{
    if (m_app)
        m_app->Db().Release();
}

} // namespace ebtq
