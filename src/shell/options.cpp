#include "shell/options.h"

#include <QCommandLineParser>
#include <QCoreApplication>

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

} // namespace

Options readOptions(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("房源管理"));
    parser.addHelpOption();
    parser.addVersionOption();
    for (const OptionText &each : optionTexts)
        parser.addOption({QLatin1String(each.name), each.text.toString(), each.value.toString()});
    parser.process(application);
    Options options;
    for (const OptionText &each : optionTexts)
        if (each.target)
            options.*each.target = parser.value(QLatin1String(each.name));
    options.dark = parser.isSet(QStringLiteral("dark"));
    return options;
}

} // namespace ebtq::shell
