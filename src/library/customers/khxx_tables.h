#pragma once

#include "library/lists/record_list.h"

namespace ebtq {

/// Columns of the grid of customers.
enum CustomerColumn : int {
    CustomerDeal = 1, ///< after an empty, hidden column
    CustomerState,
    CustomerCode, ///< 客源编号
    CustomerName,
    CustomerDistrict,
    CustomerArea,
    CustomerPrice,
    CustomerRent,
    CustomerRooms,
    CustomerDate,
    CustomerDepartment,
    CustomerAgent,
    CustomerKey ///< hidden
};

/// Numbers of the filter fields.
namespace CustomerFilter {
enum Field : int { District = 0, Rooms = 1, State = 3, Department = 4, Agent = 5, Grade = 7 };
}

[[nodiscard]] const ListTables &customerList();
[[nodiscard]] const RecordListTables &customerRecords();

/// The statement that loads the list; its joins are those of the listings' list. `where` is a whole where
/// clause or empty.
[[nodiscard]] SqlText customerStatement(const SqlText &where);
/// The same for one customer; its columns have names.
[[nodiscard]] SqlText customerRowStatement(const QString &customer);

} // namespace ebtq
