#include "library/frame/guid_text.h"

#include "library/frame/desktop.h"
#include "library/frame/module.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr qsizetype guidBytes = 16;

} // namespace

QString NewGuidText(Desktop &desktop)
{
    const QByteArray bytes = desktop.newGuidBytes();
    if (bytes.size() != guidBytes) {
        desktop.messageBox(u"Error While creating GUID!"_s, applicationTitle(), Desktop::Icon::Exclamation,
                           Desktop::Buttons::Ok);
        return {};
    }
    QString text = QString::fromLatin1(bytes.toHex()).toUpper();
    for (const qsizetype dash : {8, 13, 18, 23})
        text.insert(dash, u'-');
    return text;
}

} // namespace ebtq
