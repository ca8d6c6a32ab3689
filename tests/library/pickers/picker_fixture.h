#pragma once

#include "library/pickers/picked_rows.h"
#include "library/pickers/sel_pdm.h"
#include "library/pickers/sel_pdm_dz.h"
#include "library/pickers/sel_pdm_lpzd.h"
#include "library/support/agency_test.h"
#include "library/support/grids.h"

namespace ebtq::test {

/// Two districts of one name, three buildings, blocks of one name in two of them, and remarks.
class PickerTest : public AgencyTest
{
protected:
    static inline const QString remarks =
        u"编号= 代码;名称=名称 ;ID=代码;table=pdmsjzd;order=代码;where=类型='房源备注'"_qs;

    PickerTest()
    {
        insert(u"pdmdq(地区ID,编码,地区,级次,是否明细)"_qs,
               {u"1,'01','云泽市',1,0", u"3,'0102','石桥头',2,1", u"2,'0101','清水湾',2,1",
                u"4,'0103','清水湾',2,1"});
        insert(u"pdmlpzd(楼盘ID,楼盘编号,楼盘名称,地区ID,物业用途,拼音缩写,物业类型,建房年代,售均价,管理费,"
               u"详细地址,备注)"_qs,
               {u"31,'LP1','碧棠花园',2,'住宅','BTHY','多层','2003',1.25,0.8,'湾路1号','近湖'",
                u"32,'LP2','云锦苑',3,'商铺','YJY','','',0,0,'',''",
                u"33,'LP3','清水居',4,'住宅','QSJ','','',0,0,'',''"});
        insert(u"pdmdz(栋座ID,栋座编号,栋座名称,楼盘ID,总楼层)"_qs,
               {u"7,'A','一栋',31,18", u"8,'B','一栋',32,9"});
        insert(u"pdmsjzd(类型,代码,名称)"_qs,
               {u"'房源备注','12','急售'", u"'房源备注','15','满五唯一'", u"'房源备注','A1','学位未用'",
                u"'业主联系备注','99','晚上联系'"});
    }

    /// `parameters` as "name=value;name=value", set one by one.
    template<class P> P &made(const QString &parameters = {})
    {
        auto made = std::make_unique<P>(desktop);
        P &result = *made;
        picker = std::move(made);
        EXPECT_TRUE(result.IPickerUI_Init(app, 0, result.name()));
        set(parameters);
        QObject::connect(&result, &Picker::DoSelect, &result, [this] { events += u"select"_qs; });
        QObject::connect(&result, &Picker::DoCancel, &result, [this] { events += u"cancel"_qs; });
        return result;
    }
    void make(const QString &name, const QString &parameters = {})
    {
        if (name == u"selPdm")
            made<selPdm>(parameters);
        else if (name == u"selPdmLpzd")
            made<selPdmLpzd>(parameters);
        else
            made<selPdmDz>(parameters);
    }
    void set(const QString &parameters)
    {
        for (const QString &entry : parameters.split(u';', Qt::SkipEmptyParts))
            picker->IPickerUI_Parameters().Item(entry.section(u'=', 0, 0)).Value = entry.section(u'=', 1);
    }
    bool validate(const QString &typedText, const QString &valueField = {}, const QString &textField = {})
    {
        return picker->IPickerUI_Validate(u"x"_qs, valueField, textField, typedText, value, text);
    }
    /// The cells of a column, from the top, of the rows in sight.
    [[nodiscard]] QStringList shown(int column) const { return columnText(picker->VS(), column).split(u' '); }
    template<class Row> [[nodiscard]] std::shared_ptr<const Row> object() const
    {
        return std::dynamic_pointer_cast<const Row>(picker->IPickerUI_Objects());
    }

    std::unique_ptr<Picker> picker;
    QVariant value;
    QString text;
};

} // namespace ebtq::test
