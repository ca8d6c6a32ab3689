#include "library/dictionaries/pdm_fx.h"

namespace ebtq {

namespace {

/// The captions of the counts are the units of the field to their left; the last field has nothing but that.
constexpr EditorField fields[] = {
    {u"房型编号", u"房型编号"},
    {u"房型名称", u"房型名称"},
    {u"", u"房间数", {}, qzTxt_S::AlignCentre},
    {u"房", u"客厅数", {}, qzTxt_S::AlignCentre},
    {u"厅", u"卫生间数", {}, qzTxt_S::AlignCentre},
    {u"卫", u"阳台数", {}, qzTxt_S::AlignCentre},
    {u"阳台", u""},
};

constexpr RecordColumn columns[] = {
    {Holder::FieldText, 0, u"房型编号"},
    {Holder::FieldText, 1, u"房型名称"},
    {Holder::FieldText, 2, u"房间数", Saved::Number},
    {Holder::FieldText, 3, u"客厅数", Saved::Number},
    {Holder::FieldText, 4, u"卫生间数", Saved::Number},
    {Holder::FieldText, 5, u"阳台数", Saved::Number},
};

constexpr RecordTable record{.table = u"pdmfx",
                             .key = u"房型ID",
                             .load = columns,
                             .insert = columns,
                             .update = columns,
                             .keyKind = KeyKind::Number,
                             .words = FlatDictionary::words};

constexpr Dictionary dictionary{
    .name = u"PDMFx", .caption = u"房型", .root = u"全部房型", .fields = fields, .record = record};

} // namespace

PDMFx::PDMFx(Desktop &desktop)
    : FlatDictionary(dictionary, desktop)
{}

} // namespace ebtq
