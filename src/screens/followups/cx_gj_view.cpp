#include "screens/followups/cx_gj_view.h"

#include "library/followups/cx_gj.h"
#include "screens/controls/flex_grid_view.h"

#include <QVBoxLayout>

namespace ebtq {

namespace {

constexpr ListLook::Field fields[] = {{Cx_Gj::From, 6, u'C'},
                                      {Cx_Gj::To, 6, u'L'},
                                      {Cx_Gj::Department, 4, u'M'},
                                      {Cx_Gj::Agent, 4, u'J'},
                                      {Cx_Gj::Limit, 3, u'T'}};
constexpr ListLook listLook{
    .fields = fields, .kindKeys = u"YK", .isFoundByHost = true, .emptyHint = u"没有符合条件的跟进"};

} // namespace

CxGjView::CxGjView(Cx_Gj &module, QWidget *parent)
    : ListView(module, listLook, parent)
{
    addFilterRow();
    column()->addWidget(makeGrid(), 1);
    follow(module, makeMenu());
}

} // namespace ebtq
