#pragma once

#include "library/lists/record_list.h"

#include <array>

namespace ebtq {

// What the tables of several lists share.

inline constexpr FilterField::Parameter districtParameters[] = {{u"pdmsfmx", 1}};
inline constexpr FilterField::Parameter agentParameters[] = {{u"组织类型", 1}};

constexpr FilterField districtFilter(int number)
{
    return {.number = number,
            .caption = u"城区",
            .lookUp = {.kind = LookUp::Picker, .name = u"pdmdq"},
            .parameters = districtParameters};
}

constexpr FilterField departmentFilter(int number, QStringView caption)
{
    return {.number = number,
            .caption = caption,
            .lookUp = {.kind = LookUp::HostList,
                       .name = u"sy_usertype",
                       .valueColumn = u"mtID",
                       .textColumn = u"mtName",
                       .statement =
                           u"select mtcode,mtName,mtID from su_usertype where mtcode='@' or mtname='@'"}};
}

constexpr FilterField agentFilter(int number,
                                  std::span<const FilterField::Parameter> parameters = agentParameters)
{
    return {.number = number,
            .caption = u"经纪人",
            .lookUp = {.kind = LookUp::Picker, .name = u"pdmgy"},
            .parameters = parameters};
}

constexpr FilterClause departmentClause(int field)
{
    return {FilterClause::Key, field, u" and A.用户ID in(select userID from su_membership where UserTypeID=",
            u")"};
}

constexpr FilterClause agentClause(int field)
{
    return {FilterClause::Key, field, u" and A.业务员ID="};
}

/// The tool bar of a list of records; the captions are those that differ.
constexpr std::array<RecordListTables::Button, 13> recordButtons(QStringView firstKind,
                                                                 QStringView secondKind, QStringView make,
                                                                 QStringView edit, QStringView remove)
{
    return {{{u"all", u"全部", u"view-list-details"},
             {u"buy", firstKind, u"tag"},
             {u"rent", secondKind},
             {},
             {u"new", make, u"list-add"},
             {u"edit", edit, u"document-edit"},
             {u"delete", remove, u"edit-delete"},
             {},
             {u"gj", u"写跟进", u"edit-comment"},
             {},
             {u"refresh", u"刷新", u"view-refresh"},
             {},
             {u"close", u"关闭", u"dialog-close"}}};
}

} // namespace ebtq
