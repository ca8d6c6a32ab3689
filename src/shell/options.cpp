#include "shell/options.h"

#include "contracts/host_contracts.h"
#include "database/connection.h"

#include <QCommandLineParser>

namespace ebtq::shell {

namespace {

struct OptionText
{
    const char *name;
    QStringView text;
    QStringView value; ///< empty for a switch
    QString Options::*target = nullptr;
};

constexpr OptionText optionTexts[] = {
    {"db", u"数据库：文件或网址。不给出时用本人数据文件夹中的 ebtq.db。", u"文件或网址", &Options::database},
    {"user", u"用户名。密码取自环境变量 EBTQ_PASSWORD；没有时打开登录窗口。", u"用户名", &Options::user},
    {"tour", u"自动演示各界面，把图片和所见写入文件夹后退出。", u"文件夹", &Options::tour},
    {"library", u"组件库文件。不给出时在程序旁边和安装文件夹中查找。", u"文件", &Options::library},
    {"dark", u"深色界面。", u""},
};

/// Of the known options only the last one can lack its value; what is left is a value for a switch.
QString mistakeIn(const QCommandLineParser &parser, const QStringList &arguments)
{
    if (const QStringList unknown = parser.unknownOptionNames(); !unknown.isEmpty())
        return QStringLiteral("没有选项“%1”。").arg(unknown.join(QStringLiteral("”、“")));
    for (const OptionText &each : optionTexts)
        if (each.target && arguments.constLast() == QStringLiteral("--") + QLatin1String(each.name))
            return QStringLiteral("选项 %1 后缺少%2。").arg(arguments.constLast(), each.value);
    return QStringLiteral("不带值的选项后多了值。");
}

} // namespace

Options readOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("房源管理"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("显示此说明后退出。"));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("显示版本后退出。"));
    parser.addOptions({help, version});
    for (const OptionText &each : optionTexts)
        parser.addOption({QLatin1String(each.name), each.text.toString(), each.value.toString()});
    if (!parser.parse(arguments))
        throw Failure(mistakeIn(parser, arguments) + QStringLiteral("\n用 --help 查看各选项。"));
    if (!parser.positionalArguments().isEmpty())
        throw Failure(QStringLiteral("多余的参数：%1")
                          .arg(db::Connection::shownLocation(parser.positionalArguments().constFirst())));
    if (parser.isSet(help))
        parser.showHelp();
    if (parser.isSet(version))
        parser.showVersion();
    Options options;
    for (const OptionText &each : optionTexts)
        if (each.target)
            options.*each.target = parser.value(QLatin1String(each.name));
    options.dark = parser.isSet(QStringLiteral("dark"));
    return options;
}

} // namespace ebtq::shell
