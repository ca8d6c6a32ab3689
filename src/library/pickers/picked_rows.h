#pragma once

#include "contracts/host_contracts.h"

namespace ebtq {

// What a picker of this library returns besides value and text. A look-up without a match leaves its fields 0
// or empty.

/// A row of any dictionary table.
class clsPdm : public PickedRow
{
    Q_OBJECT
    Q_PROPERTY(int lID MEMBER lID)
    Q_PROPERTY(QString s编号 MEMBER s编号)
    Q_PROPERTY(QString s名称 MEMBER s名称)

public:
    int lID = 0;
    QString s编号;
    QString s名称;
};

/// A building, from which a listing takes use, type, year and fee.
class clsLpzd : public PickedRow
{
    Q_OBJECT
    Q_PROPERTY(int l楼盘ID MEMBER l楼盘ID)
    Q_PROPERTY(QString s楼盘编号 MEMBER s楼盘编号)
    Q_PROPERTY(QString s楼盘名称 MEMBER s楼盘名称)
    Q_PROPERTY(int l地区ID MEMBER l地区ID)
    Q_PROPERTY(QString s物业用途 MEMBER s物业用途)
    Q_PROPERTY(QString s物业类型 MEMBER s物业类型)
    Q_PROPERTY(QString s建房年代 MEMBER s建房年代)
    Q_PROPERTY(double d售均价 MEMBER d售均价)
    Q_PROPERTY(double d管理费 MEMBER d管理费)
    Q_PROPERTY(QString s详细地址 MEMBER s详细地址)
    Q_PROPERTY(QString s备注 MEMBER s备注)
    Q_PROPERTY(QString s拼音缩写 MEMBER s拼音缩写)

public:
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
class clsDz : public PickedRow
{
    Q_OBJECT
    Q_PROPERTY(int l栋座ID MEMBER l栋座ID)
    Q_PROPERTY(QString s栋座编号 MEMBER s栋座编号)
    Q_PROPERTY(QString s栋座名称 MEMBER s栋座名称)
    Q_PROPERTY(int l楼盘ID MEMBER l楼盘ID)
    Q_PROPERTY(int l总楼层 MEMBER l总楼层)

public:
    int l栋座ID = 0;
    QString s栋座编号;
    QString s栋座名称;
    int l楼盘ID = 0;
    int l总楼层 = 0;
};

} // namespace ebtq
