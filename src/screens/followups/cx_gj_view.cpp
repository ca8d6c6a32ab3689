#include "screens/followups/cx_gj_view.h"

#include "library/followups/cx_gj.h"
#include "screens/controls/flex_grid_view.h"

#include <QVBoxLayout>

namespace ebtq {

namespace {

constexpr ListLook::Field fields[] = {
    {Cx_Gj::From, 6}, {Cx_Gj::To, 6}, {Cx_Gj::Department, 4}, {Cx_Gj::Agent, 4}, {Cx_Gj::Limit, 3}};
constexpr ListLook listLook{.fields = fields,
                            .kindKeys = u"YK",
                            .searchHint = u"在已加载的跟进中查找",
                            .isFoundByHost = true,
                            .emptyHint = u"没有符合条件的跟进"};

} // namespace

CxGjView::CxGjView(Cx_Gj &module, QWidget *parent)
    : ListView(module, listLook, parent)
{
    addFilterRow();
    column()->addWidget(makeGrid(), 1);
    follow(module, makeMenu());
}

} // namespace ebtq
