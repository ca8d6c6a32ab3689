#include "database/schema/tables.h"

namespace ebtq::db {

namespace {

using enum ColumnType;
using Definition = ColumnDefinition;

constexpr ColumnDefinition buildingsColumns[] = {
    {u"楼盘ID", Integer, Definition::Key},
    {u"楼盘编号", Text},
    {u"楼盘名称", Text},
    {u"拼音缩写", Text},
    {u"地区ID", Integer},
    {u"物业用途", Text},
    {u"物业类型", Text},
    {u"建房年代", Text},
    {u"售均价", Number},
    {u"管理费", Number},
    {u"详细地址", Text},
    {u"备注", Text},
};
constexpr IndexDefinition buildingsIndexes[] = {
    {u"ix_pdmlpzd_number", u"楼盘编号"},   // list order, look-up by number
    {u"ix_pdmlpzd_name", u"楼盘名称"},     // look-up by name
    {u"ix_pdmlpzd_initials", u"拼音缩写"}, // look-up by initials
    {u"ix_pdmlpzd_district", u"地区ID"},   // buildings of a district
};

constexpr ColumnDefinition blocksColumns[] = {
    {u"栋座ID", Integer, Definition::Key},
    {u"栋座编号", Text},
    {u"栋座名称", Text},
    {u"总楼层", Number},
    {u"楼盘ID", Integer},
};
constexpr IndexDefinition blocksIndexes[] = {
    {u"ix_pdmdz_building", u"楼盘ID, 栋座编号"}, // blocks of a building in order
    {u"ix_pdmdz_name", u"栋座名称"},             // look-up by name
};

constexpr ColumnDefinition districtsColumns[] = {
    {u"地区ID", Integer, Definition::Key},
    {u"编码", Text},
    {u"地区", Text},
    {u"级次", Number},
    {u"是否明细", Integer},
};
constexpr IndexDefinition districtsIndexes[] = {
    {u"ix_pdmdq_code", u"编码"}, // order of the tree
    {u"ix_pdmdq_name", u"地区"}, // look-up by name
};

constexpr ColumnDefinition propertyRightsColumns[] = {
    {u"产权ID", Integer, Definition::Key},
    {u"产权编号", Text},
    {u"产权名称", Text},
    {u"证件名称", Text},
    {u"付款方式", Text},
    {u"付佣金方式", Text},
};
constexpr IndexDefinition propertyRightsIndexes[] = {
    {u"ix_pdmcq_number", u"产权编号"}, // look-up by number
};

constexpr ColumnDefinition houseTypesColumns[] = {
    {u"房型ID", Integer, Definition::Key},
    {u"房型编号", Text},
    {u"房型名称", Text},
    {u"房间数", Number},
    {u"客厅数", Number},
    {u"卫生间数", Number},
    {u"阳台数", Number},
};
constexpr IndexDefinition houseTypesIndexes[] = {
    {u"ix_pdmfx_number", u"房型编号"}, // look-up by number
};

constexpr ColumnDefinition dictionaryColumns[] = {
    {u"ID", Integer, Definition::AutoKey},
    {u"类型", Text},
    {u"代码", Text},
    {u"名称", Text},
};
constexpr IndexDefinition dictionaryIndexes[] = {
    {u"ix_pdmsjzd_kind", u"类型, 代码, 名称"}, // one kind in order; the check by code or name
};

constexpr ColumnDefinition employeesColumns[] = {
    {u"雇员ID", Integer, Definition::Key},
    {u"姓名", Text},
};
constexpr IndexDefinition employeesIndexes[] = {
    {u"ix_pdmgy_name", u"姓名"}, // look-up by name
};

constexpr ColumnDefinition departmentsColumns[] = {
    {u"mtID", Integer, Definition::Key},
    {u"mtcode", Text},
    {u"mtname", Text},
};

constexpr ColumnDefinition membershipsColumns[] = {
    {u"userID", Text, Definition::Key},
    {u"UserTypeID", Integer, Definition::Key},
    {u"username", Text},
};
constexpr IndexDefinition membershipsIndexes[] = {
    {u"ix_su_membership_department", u"UserTypeID, userID"}, // users of a department
};

constexpr ColumnDefinition listingsColumns[] = {
    {u"房源ID", Text, Definition::Key},
    {u"房源编号", Text},
    {u"地区ID", Integer},
    {u"地区", Text},
    {u"楼盘ID", Integer},
    {u"楼盘字典", Text},
    {u"栋座ID", Integer},
    {u"栋座位置", Text},
    {u"房号", Text},
    {u"楼层", Text},
    {u"总楼层", Text},
    {u"房型_房", Number},
    {u"房型_厅", Number},
    {u"房型_卫", Number},
    {u"房型_阳台", Number},
    {u"用途", Text},
    {u"总面积", Number},
    {u"实用面积", Number},
    {u"朝向", Text},
    {u"类型", Text},
    {u"建房年代", Text},
    {u"房源属性", Number},
    {u"交易方式", Text},
    {u"交易状态", Text},
    {u"售房价格", Number},
    {u"售房底价", Number},
    {u"售房包税费", Text},
    {u"租房价格", Number},
    {u"租房底价", Number},
    {u"租房原购价", Number},
    {u"委托日期", Date},
    {u"委托方式", Text},
    {u"管理费", Number},
    {u"交房日期", Date},
    {u"委托编号", Text},
    {u"来源", Text},
    {u"现状", Text},
    {u"装修", Text},
    {u"配套", Text},
    {u"家具", Text},
    {u"家电", Text},
    {u"产权", Text},
    {u"证件", Text},
    {u"付款", Text},
    {u"付佣", Text},
    {u"看房", Text},
    {u"钥匙号", Text},
    {u"业主", Text},
    {u"联系人", Text},
    {u"国籍", Text},
    {u"手机", Text},
    {u"联系说明", Text},
    {u"备注", Text},
    {u"业务员ID", Integer},
    {u"用户ID", Text},
    {u"制单日期", Date},
    {u"制单人", Text},
    {u"操作日期", Date},
    {u"附属房", Text},
};
constexpr IndexDefinition listingsIndexes[] = {
    {u"ix_fyxx_key", u"房源ID", IndexDefinition::Hashed}, // is a follow-up one of a listing
    {u"ix_fyxx_number", u"房源编号 desc"},                // order of the list
    {u"ix_fyxx_district", u"地区, 房源编号 desc"},        // filter by district in the order of the list
    {u"ix_fyxx_building", u"楼盘字典, 房源编号 desc"},    // filter by building in the order of the list
    {u"ix_fyxx_agent", u"业务员ID, 房源编号 desc"},       // filter by agent
    {u"ix_fyxx_user", u"用户ID"},                         // filter by department
    {u"ix_fyxx_changed", u"操作日期"},                    // date windows
    {u"ix_fyxx_building_id", u"楼盘ID"},                  // is a building in use
    // Matching: the other measures behind the first, so that only listings that suit are fetched. Of indexes
    // that look alike to it SQLite takes the later one, and prices tell more than areas.
    {u"ix_fyxx_match_area", u"总面积, 售房价格, 租房价格"},
    {u"ix_fyxx_match_sale", u"售房价格, 总面积, 租房价格"},
    {u"ix_fyxx_match_rent", u"租房价格, 总面积, 售房价格"},
};

constexpr ColumnDefinition customersColumns[] = {
    {u"客源ID", Text, Definition::Key},
    {u"客源编号", Text},
    {u"地区ID", Integer},
    {u"地区", Text},
    {u"委托日期", Date},
    {u"委托方式", Text},
    {u"委托等级", Text},
    {u"委托协议", Text},
    {u"客户名称", Text},
    {u"电话", Text},
    {u"手机", Text},
    {u"邮件", Text},
    {u"其他联系方式", Text},
    {u"地段要求", Text},
    {u"需求户型", Text},
    {u"物业要求", Text},
    {u"用途", Text},
    {u"朝向", Text},
    {u"装修要求", Text},
    {u"面积1", Number},
    {u"面积2", Number},
    {u"楼层1", Number},
    {u"楼层2", Number},
    {u"求购价格1", Number},
    {u"求购价格2", Number},
    {u"求租价格1", Number},
    {u"求租价格2", Number},
    {u"付款方式", Text},
    {u"付佣方式", Text},
    {u"信息来源", Text},
    {u"备注", Text},
    {u"业务员ID", Integer},
    {u"用户ID", Text},
    {u"制单日期", Date},
    {u"制单人", Text},
    {u"操作日期", Date},
    {u"状态", Integer},
    {u"方式", Integer},
};
constexpr IndexDefinition customersIndexes[] = {
    {u"ix_fykh_key", u"客源ID", IndexDefinition::Hashed}, // is a follow-up one of a customer
    {u"ix_fykh_number", u"客源编号"},                     // order of the list, record navigation
    {u"ix_fykh_changed", u"操作日期"},                    // date windows
    {u"ix_fykh_user", u"用户ID"},                         // filter by department
    {u"ix_fykh_agent", u"业务员ID"},                      // filter by agent
    // Matching: the upper bound first, since a customer without a wish has 0 there and is passed over, and
    // the other bounds behind it, so that only customers who match are fetched. The one by area is the
    // broadest and comes first: of indexes that look alike to it SQLite takes the narrower or the later one,
    // and prices tell more than areas.
    {u"ix_fykh_match_area", u"面积2, 面积1, 楼层2, 楼层1, 求购价格2, 求购价格1, 求租价格2, 求租价格1"},
    {u"ix_fykh_match_buy", u"求购价格2, 求购价格1, 面积2, 面积1, 楼层2, 楼层1"},
    {u"ix_fykh_match_rent", u"求租价格2, 求租价格1, 面积2, 面积1, 楼层2, 楼层1"},
};

constexpr ColumnDefinition followUpsColumns[] = {
    {u"跟进ID", Text, Definition::Key},
    {u"操作日期", Date},
    {u"业务员ID", Integer},
    {u"用户ID", Text},
    {u"跟进内容", Text},
    {u"房源ID", Text},
    {u"下次提醒", Integer},
    {u"提醒日期", Date},
    {u"提醒范围", Integer},
    {u"提醒内容", Text},
    {u"处理结果", Text},
    {u"处理日期", Date},
};
constexpr IndexDefinition followUpsIndexes[] = {
    {u"ix_fygj_owner", u"房源ID, 操作日期 desc"}, // follow-ups of one listing or customer, newest first
    {u"ix_fygj_time", u"操作日期, 房源ID"},       // the newest, also those of listings or customers alone
    {u"ix_fygj_reminder", u"下次提醒, 提醒日期"}, // reminders that are due
};

constexpr ColumnDefinition attachmentsColumns[] = {
    {u"rowIndex", Integer, Definition::AutoKey},
    {u"progID", Integer},
    {u"IDs", Text},
    {u"filename", Text},
    {u"filesize", Number},
    {u"modifydate", Date},
    {u"createdate", Date},
    {u"contenttype", Text},
    {u"description", Text},
    {u"iscompress", Integer},
    {u"isencrypt", Integer},
    {u"password", Text},
    {u"isActive", Integer},
    {u"isPicture", Integer},
    {u"contents", Binary},
};
constexpr IndexDefinition attachmentsIndexes[] = {
    {u"ix_pubAttach_owner",
     u"progID, IDs, isActive, isPicture, rowIndex"}, // the count of attachments in the list, answered from
                                                     // the index alone
};

constexpr ColumnDefinition hostUsersColumns[] = {
    {u"userID", Text, Definition::Key},
    {u"username", Text, Definition::EmptyText},
    {u"password", Text, Definition::EmptyText},
    {u"isActive", Integer, Definition::Zero},
};
constexpr IndexDefinition hostUsersIndexes[] = {
    {u"ux_host_users_name", u"username", IndexDefinition::Unique}, // sign-in by name
};

constexpr ColumnDefinition hostRightsColumns[] = {
    {u"userID", Text, Definition::Key},
    {u"moduleID", Integer, Definition::Key},
    {u"rightID", Integer, Definition::Key},
    {u"allowed", Integer, Definition::Zero},
};

constexpr ColumnDefinition hostParametersColumns[] = {
    {u"userID", Text, Definition::Key},
    {u"groupID", Integer, Definition::Key},
    {u"keyText", Text, Definition::Key},
    {u"valueText", Text},
};

constexpr ColumnDefinition hostCountersColumns[] = {
    {u"tableName", Text, Definition::Key},
    {u"keyColumn", Text, Definition::Key},
    {u"lastID", Integer, Definition::Zero},
};

constexpr ColumnDefinition hostNumbersColumns[] = {
    {u"moduleID", Integer, Definition::Key},
    {u"period", Text, Definition::Key},
    {u"lastNumber", Integer, Definition::Zero},
};

constexpr ColumnDefinition hostModulesColumns[] = {
    {u"moduleID", Integer, Definition::Key},
    {u"caption", Text, Definition::EmptyText},
    {u"className", Text, Definition::EmptyText},
    {u"prefix", Text, Definition::EmptyText},
};

constexpr ColumnDefinition hostSchemaColumns[] = {
    {u"version", Integer, Definition::Zero},
};

constexpr TableDefinition tables[] = {
    {u"pdmlpzd", buildingsColumns, buildingsIndexes},
    {u"pdmdz", blocksColumns, blocksIndexes},
    {u"pdmdq", districtsColumns, districtsIndexes},
    {u"pdmcq", propertyRightsColumns, propertyRightsIndexes},
    {u"pdmfx", houseTypesColumns, houseTypesIndexes},
    {u"pdmsjzd", dictionaryColumns, dictionaryIndexes},
    {u"pdmgy", employeesColumns, employeesIndexes},
    {u"su_usertype", departmentsColumns, {}},
    {u"su_membership", membershipsColumns, membershipsIndexes},
    {u"fyxx", listingsColumns, listingsIndexes},
    {u"fykh", customersColumns, customersIndexes},
    {u"fygj", followUpsColumns, followUpsIndexes},
    {u"pubAttach", attachmentsColumns, attachmentsIndexes},
    {u"host_users", hostUsersColumns, hostUsersIndexes},
    {u"host_rights", hostRightsColumns, {}},
    {u"host_parameters", hostParametersColumns, {}},
    {u"host_counters", hostCountersColumns, {}},
    {u"host_numbers", hostNumbersColumns, {}},
    {u"host_modules", hostModulesColumns, {}},
    {u"host_schema", hostSchemaColumns, {}},
};

constexpr QStringView formerIndexes[] = {u"ix_fykh_area", u"ix_fykh_buy",  u"ix_fykh_rent", u"ix_fygj_date",
                                         u"ix_fyxx_area", u"ix_fyxx_sale", u"ix_fyxx_rent"};

} // namespace

std::span<const TableDefinition> schemaTables()
{
    return tables;
}

std::span<const QStringView> retiredIndexes()
{
    return formerIndexes;
}

Catalog schemaCatalog()
{
    Catalog catalog;
    for (const TableDefinition &table : schemaTables()) {
        Catalog::Table entry{QString::fromUtf16(table.name), {}};
        for (const ColumnDefinition &column : table.columns)
            entry.columns.push_back({QString::fromUtf16(column.name), column.type});
        catalog.add(std::move(entry));
    }
    return catalog;
}

} // namespace ebtq::db
