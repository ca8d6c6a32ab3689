#include "library/dictionaries/pdm_cq.h"

namespace ebtq {

namespace {

constexpr EditorField fields[] = {
    {u"产权编号", u"产权编号"}, {u"产权名称", u"产权名称"},     {u"证件名称", u"证件名称"},
    {u"付款方式", u"付款方式"}, {u"付佣金方式", u"付佣金方式"},
};

constexpr RecordColumn columns[] = {
    {Holder::FieldText, 0, u"产权编号"},   {Holder::FieldText, 1, u"产权名称"},
    {Holder::FieldText, 2, u"证件名称"},   {Holder::FieldText, 3, u"付款方式"},
    {Holder::FieldText, 4, u"付佣金方式"},
};

constexpr RecordTable record{.table = u"pdmcq",
                             .key = u"产权ID",
                             .load = columns,
                             .insert = columns,
                             .update = columns,
                             .keyKind = KeyKind::Number,
                             .words = FlatDictionary::words};

constexpr Dictionary dictionary{
    .name = u"PDMCq", .caption = u"产权", .root = u"全部产权", .fields = fields, .record = record};

} // namespace

PDMCq::PDMCq(Desktop &desktop)
    : FlatDictionary(dictionary, desktop)
{}

} // namespace ebtq
