#include "library/dictionaries/pdm_lpzd.h"

#include "contracts/conversions.h"
#include "contracts/level_code.h"
#include "contracts/null_conv.h"
#include "library/frame/statements.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

enum Number : int {
    BuildingNumber,
    Name,
    District,
    Usage,
    PropertyType,
    BuiltIn,
    Address,
    Price,
    Fee,
    Remark,
    Initials
};

constexpr int parameterGroup = 12;
const QString schemeParameter = u"dzbm"_s;

constexpr LookUp dictionaryRow(QStringView helpCode, QStringView statement)
{
    return {.kind = LookUp::HostList,
            .name = helpCode,
            .valueColumn = u"ID",
            .textColumn = u"名称",
            .statement = statement};
}

constexpr EditorField fields[] = {
    {u"楼盘编号", u"楼盘编号"},
    {u"楼盘名称", u"楼盘名称"},
    {u"地区", u"地区", {.kind = LookUp::Picker, .name = u"pdmdq"}},
    {u"物业用途", u"物业用途",
     dictionaryRow(u"gy_sjzd_yt", u"select * from pdmsjzd where 类型='物业用途' and (代码='@' or 名称='@')")},
    {u"物业类型", u"物业类型",
     dictionaryRow(u"gy_sjzd_lx", u"select * from pdmsjzd where 类型='物业类型' and (代码='@' or 名称='@')")},
    {u"建房年代", u"建房年代"},
    {u"详细地址", u"详细地址"},
    {u"售均价", u"售均价", {}, qzTxt_S::AlignRight},
    {u"管理费", u"管理费", {}, qzTxt_S::AlignRight},
    {u"备注", u"备注"},
    {u"拼音缩写", u"拼音缩写"},
};

constexpr int required[] = {District};

constexpr RecordColumn column(int field, QStringView name)
{
    return {Holder::FieldText, field, name};
}

constexpr RecordColumn districtKey{Holder::FieldKey, District, u"地区ID", Saved::Number};

constexpr RecordColumn loaded[] = {
    column(BuildingNumber, u"楼盘编号"),
    column(Name, u"楼盘名称"),
    districtKey,
    column(District, u"地区"),
    column(Usage, u"物业用途"),
    column(PropertyType, u"物业类型"),
    column(BuiltIn, u"建房年代"),
    column(Address, u"详细地址"),
    column(Price, u"售均价"),
    column(Fee, u"管理费"),
    column(Remark, u"备注"),
    column(Initials, u"拼音缩写"),
};

constexpr RecordColumn written[] = {
    column(BuildingNumber, u"楼盘编号"),
    column(Name, u"楼盘名称"),
    column(Initials, u"拼音缩写"),
    districtKey,
    column(Usage, u"物业用途"),
    column(PropertyType, u"物业类型"),
    column(BuiltIn, u"建房年代"),
    {Holder::FieldText, Price, u"售均价", Saved::Number},
    {Holder::FieldText, Fee, u"管理费", Saved::Number},
    column(Address, u"详细地址"),
    column(Remark, u"备注"),
};

constexpr RecordTable buildingRecord{
    .table = u"pdmlpzd",
    .key = u"楼盘ID",
    .load = loaded,
    .insert = written,
    .update = written,
    .keyKind = KeyKind::Number,
    .words = {u"InSert Into ", u") Values (", u"UpDate ", u" Set ", u" Where "}};

constexpr Dictionary dictionary{.name = u"PdmLpzd",
                                .caption = u"楼盘字典",
                                .root = u"全部楼盘",
                                .fields = fields,
                                .record = buildingRecord};

QString districtNodeKey(const QString &code)
{
    return u'k' + code;
}

/// A district's code and its name stand in its node's text.
const QString betweenCodeAndName = u"  "_s;

bool beginsWith(const Node &node, QChar letter)
{
    return node.Key().startsWith(letter, Qt::CaseInsensitive);
}

} // namespace

PdmLpzd::PdmLpzd(Desktop &desktop)
    : DictionaryForm(dictionary, desktop)
    , m_grid(controls().add<qzGrid>(u"qzGrid"_s))
{
    makeGrid();
    setDragEnabled(true);
    TV().setCounted([this](const Node &node) { return isRecord(node); });
    connect(&tv(), &cTreeView::Dropped, this, &PdmLpzd::dropped);
}

bool PdmLpzd::IFormUI_Init(HostApp &app, int unused1, int unused2)
{
    return DictionaryForm::IFormUI_Init(app, unused1, unused2) && trapped(u"IFormUI_Init::", [&] {
               m_scheme = app.SystemParameter(parameterGroup, schemeParameter).Text;
               qzTxt(District).set_judge_time(qzTxt_S::JudgeByScreen);
               for (const int number : {Usage, PropertyType})
                   qzTxt(number).set_error_message(FieldLookUps::refusal() + Trim(qzTxt(number).Caption()));
               return true;
           });
}

void PdmLpzd::setParameters(int, ParameterList &parameters)
{
    parameters.Item(u"pdmsfmx"_s).Value = 1;
}

// The tree

bool PdmLpzd::isDistrict(const Node &node)
{
    return beginsWith(node, u'k');
}

bool PdmLpzd::isRecord(const Node &node) const
{
    return beginsWith(node, u'l');
}

bool PdmLpzd::fillTree()
{
    return fillDistricts() && fillBuildings();
}

/// The districts' failure is reported in the database's own words.
bool PdmLpzd::fillDistricts()
{
    if (LevelCode::LevelLength(1, m_scheme) == 0)
        refuse(u"系统参数“dzbm”没有给出地区编码各级的长度，地区无法显示！"_s);
    try {
        const auto rows = openRows(db(), u"select 编码,地区,地区ID from pdmdq order by 级次, 编码"_s);
        for (; !rows->Eof(); rows->MoveNext())
            addDistrict(*rows);
        return true;
    } catch (const StatementFailure &failure) {
        raiseError(QString::fromUtf8(failure.what()), FailureLevel, caption());
        return false;
    }
}

/// Parents come before their children. A district whose parent is missing gets no node, and so do its
/// buildings: the database's check names them.
void PdmLpzd::addDistrict(const Recordset &row)
{
    const QString code = Trim(NullConv::ToText(row.Fields(u"编码"_s).Value));
    const bool isFirst = code.size() == LevelCode::LevelLength(1, m_scheme);
    tv().NodeAdd({.relative = isFirst ? rootKey() : districtNodeKey(LevelCode::ParentCode(code, m_scheme)),
                  .key = districtNodeKey(code),
                  .text = code + betweenCodeAndName + NullConv::ToText(row.Fields(u"地区"_s).Value),
                  .tag = row.Fields(u"地区ID"_s).Value});
}

bool PdmLpzd::fillBuildings()
{
    const RowBlock rows =
        openRows(db(), u"select A.楼盘编号,A.楼盘名称,A.楼盘ID,B.编码 from pdmlpzd A left join pdmdq B on "
                       u"A.地区ID=B.地区ID order by 编码,楼盘编号"_s)
            ->GetRows();
    enum Cell : int { NumberCell, NameCell, IdCell, CodeCell };
    const auto text = [&](qsizetype row, int at) {
        const std::string_view cell = rows.cell(row, at);
        return QString::fromUtf8(cell.data(), static_cast<qsizetype>(cell.size()));
    };
    for (qsizetype row = 0; row < rows.rowCount(); ++row) {
        const QString number = text(row, NumberCell);
        tv().NodeAdd({.relative = districtNodeKey(Trim(text(row, CodeCell))),
                      .key = recordKey(number),
                      .text = Trim(number) + u' ' + Trim(text(row, NameCell)),
                      .tag = rows.value(row, IdCell)});
    }
    return true;
}

SqlText PdmLpzd::recordStatement(int id) const
{
    return u"select A.*,B.地区 from pdmlpzd A left join pdmdq B on A.地区ID=B.地区ID where 楼盘ID=%1"_s.arg(
        id);
}

void PdmLpzd::dropped(const Node *district, Node *building)
{
    if (Editing() || !isDistrict(*district) || !isRecord(*building))
        return;
    const QString key = NullConv::ToText(district->Tag());
    const QString name = district->Text().mid(district->Key().size() - 1 + betweenCodeAndName.size());
    tv().ReSelectItem(building);
    if (!IFormUI_FileEdit())
        return;
    qzTxt(District).setText(name);
    qzTxt(District).setValue(key);
}

// Editing and deleting

bool PdmLpzd::isRecordSelected(const QString &verb)
{
    const Node *node = TV().SelectedItem();
    if (!node)
        tell(u"没有选择需要%1的对象！"_s.arg(verb), applicationTitle());
    else if (!isRecord(*node))
        tell(u"没有选择需要%1的对象!"_s.arg(verb), u"提示："_s);
    else if (!tv().IsSelected())
        tell(u"无选择项目,不能进行%1"_s.arg(verb), u"提示："_s);
    else
        return true;
    return false;
}

bool PdmLpzd::mayEdit()
{
    return isRecordSelected(u"修改"_s);
}

bool PdmLpzd::mayDelete()
{
    return isRecordSelected(u"删除"_s);
}

bool PdmLpzd::IFormUI_FileEdit()
{
    if (!DictionaryForm::IFormUI_FileEdit())
        return false;
    qzTxt(District).setLocked(false);
    return true;
}

/// No transaction spans the two: a failure of the second leaves the building without blocks.
std::vector<SqlText> PdmLpzd::deleteStatements(int id) const
{
    return {u"delete from pdmdz where 楼盘ID=%1"_s.arg(id), u"delete from pdmlpzd where 楼盘ID=%1"_s.arg(id)};
}

// Saving

std::span<const int> PdmLpzd::furtherRequired() const
{
    return required;
}

DictionaryForm::SaveReport PdmLpzd::saveReport() const
{
    return {{}, applicationTitle()};
}

bool PdmLpzd::IFormUI_FileSave()
{
    m_grid.finishEdit();
    return DictionaryForm::IFormUI_FileSave();
}

QString PdmLpzd::parentKey()
{
    const SqlText sql = u"select 编码 from pdmdq where 地区ID="_s + PlainDecimal(Val(qzTxt(District).Tag()));
    return districtNodeKey(Trim(NullConv::ToText(singleValue(db(), sql))));
}

} // namespace ebtq
