#include "library/frame/module.h"

#include "contracts/null_conv.h"
#include "library/layout/form_status.h"

namespace ebtq {

QString applicationTitle()
{
    return QStringLiteral("EBTQ_S");
}

Module::Module(QString name, Desktop &desktop)
    : m_name(std::move(name))
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
    const QString key = QStringLiteral("backcolor");
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
        throw Failure(QStringLiteral("模块尚未初始化！"));
    return *m_app;
}

void Module::raiseDatabaseError(const QString &description)
{
    raiseError(description, FailureLevel, applicationTitle());
}

QString Module::trappedText(QStringView tag, const QString &description) const
{
    return m_name + tag.toString() + description;
}

void Module::reportTrapped(QStringView tag, const std::exception &failure)
{
    raiseError(trappedText(tag, QString::fromUtf8(failure.what())), FailureLevel, applicationTitle());
}

void Module::releaseDatabase()
{
    if (m_app)
        m_app->Db().Release();
}

} // namespace ebtq
