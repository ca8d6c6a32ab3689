#include "library/controls/shown_grid.h"
#include "library/frame/self_print.h"
#include "library/listings/fcxx.h"

namespace ebtq {

/// Each filter brings its own gap along, whether or not another stands before it.
QString Fcxx::printSubtitle()
{
    QString text;
    const auto add = [&](QStringView caption, int field) {
        if (const QString filter = qzTxt(field).Text(); !filter.isEmpty())
            text += caption.toString() + filter;
    };
    add(u"城区：", 0);
    add(u"     楼盘：", 7);
    add(u"\t房型：", 1);
    return text + u'\r';
}

bool Fcxx::SelfPrint(bool bPrint, bool bSetup)
{
    return trappedWithoutDatabase(u"-->SelfPrint::", [&] {
        const QString file = printFile(app().PrintEnv().PrintFolder(), m_moduleId);
        const ShownGrid shown(m_grid);
        printSelf(app(), {file, QStringLiteral("房源信息列表"), printSubtitle(), shown}, bPrint, bSetup);
        return true;
    });
}

} // namespace ebtq
