#pragma once

#include "contracts/host_contracts.h"

namespace ebtq {

// What a picker of this library returns besides value and text. A look-up without a match leaves its fields 0
// or empty.

/// A row of any dictionary table.
struct clsPdm : PickedRow
{
    int lID = 0;
    QString s编号;
    QString s名称;
};

/// A building, from which a listing takes use, type, year and fee.
struct clsLpzd : PickedRow
{
    int l楼盘ID = 0;
    QString s楼盘编号;
    QString s楼盘名称;
    int l地区ID = 0;
    QString s物业用途;
    QString s物业类型;
    QString s建房年代;
    double d售均价 = 0;
    double d管理费 = 0;
    QString s详细地址;
    QString s备注;
    QString s拼音缩写;
};

/// A block of a building, from which a listing takes the number of floors.
struct clsDz : PickedRow
{
    int l栋座ID = 0;
    QString s栋座编号;
    QString s栋座名称;
    int l楼盘ID = 0;
    int l总楼层 = 0;
};

} // namespace ebtq
