#include "contracts/print_contract.h"
#include "library/listings/fcxx_fixture.h"

#include <QDir>

namespace ebtq::test {

namespace {

/// Writes down what it is asked to print, the first row of each column included.
class WritingPrinter : public QObject, public PrintObject
{
    Q_OBJECT
    Q_INTERFACES(ebtq::PrintObject)

public:
    QString PrintOut(const Job &job, bool bPrint) override
    {
        return note(bPrint ? u"print"_qs : u"preview"_qs, job);
    }
    QString SetUp(const Job &job) override { return note(u"setup"_qs, job); }

    QStringList asked;
    QString subtitle;
    QStringList captions;
    QStringList numbers;
    QString failure;

private:
    QString note(const QString &operation, const Job &job)
    {
        asked.append(operation + u' ' + job.file + u' ' + job.title);
        subtitle = job.subtitle;
        captions.clear();
        for (const PrintedGrid::Column &column : job.VSFlexGrid.columns())
            captions.append(column.caption);
        numbers.clear();
        for (int row = 0; row < job.VSFlexGrid.rowCount(); ++row)
            numbers.append(job.VSFlexGrid.text(row, 1));
        return failure;
    }
};

} // namespace

class FcxxPrintTest : public FcxxTest
{
protected:
    void SetUp() override
    {
        app.setPrintContext(&printer);
        store(u"A3 A2 A1"_qs);
        open(host::ListingModule);
        events.clear();
    }
    WritingPrinter printer;
};

TEST_F(FcxxPrintTest, HandsOverWhatIsSeenUnderTheModulesPrintFile)
{
    list.VS().setColHidden(ListingDeal, true);
    list.VS().setColWidth(ListingState, 0);
    list.VS().setRowHidden(2, true);
    EXPECT_TRUE(list.SelfPrint(true, false) && list.SelfPrint(false, false) && list.SelfPrint(true, true));
    const QString rest = u' ' + folder.path() + u"/selfPrn/Rpt101.prn 房源信息列表"_qs;
    EXPECT_EQ(printer.asked, QStringList({u"print"_qs + rest, u"preview"_qs + rest, u"setup"_qs + rest}));
    EXPECT_TRUE(QDir(folder.path() + u"/selfPrn"_qs).exists());
    EXPECT_EQ(printer.numbers.join(u' ') + u' ' + printer.captions.mid(1, 3).join(u' '),
              u"A3 A1 房源编号 城区 楼盘字典");
    const std::tuple<const char16_t *, const char16_t *, const char16_t *, const char16_t *> subtitles[] = {
        {u"", u"", u"", u"\r"},
        {u"天河区", u"", u"", u"城区：天河区\r"},
        {u"", u"翠堤雅居", u"", u"     楼盘：翠堤雅居\r"},
        {u"天河区", u"翠堤雅居", u"3-2-1-1", u"城区：天河区     楼盘：翠堤雅居\t房型：3-2-1-1\r"},
    };
    for (const auto &[district, building, rooms, subtitle] : subtitles) {
        list.qzTxt(ListingFilter::District).setText(QString::fromUtf16(district));
        list.qzTxt(ListingFilter::Building).setText(QString::fromUtf16(building));
        list.qzTxt(ListingFilter::Rooms).setText(QString::fromUtf16(rooms));
        EXPECT_TRUE(list.SelfPrint(true, false));
        EXPECT_EQ(printer.subtitle, QString::fromUtf16(subtitle));
    }
    EXPECT_EQ(events, QStringList());
}

TEST_F(FcxxPrintTest, FailuresReachTheUserAndTheContractPrintsNothing)
{
    printer.failure = u"打印机没有纸！"_qs;
    EXPECT_FALSE(list.SelfPrint(true, false));
    app.setPrintContext(nullptr);
    EXPECT_FALSE(list.SelfPrint(false, false));
    QDir(folder.path()).rmdir(u"selfPrn"_qs);
    QFile inTheWay(folder.filePath(u"selfPrn"_qs));
    ASSERT_TRUE(inTheWay.open(QFile::WriteOnly));
    EXPECT_FALSE(list.SelfPrint(false, true));
    EXPECT_EQ(events,
              QStringList({u"Fcxx-->SelfPrint::打印机没有纸！|8|EBTQ_S"_qs,
                           u"Fcxx-->SelfPrint::本程序没有打印功能！|8|EBTQ_S"_qs,
                           u"Fcxx-->SelfPrint::无法创建文件夹“%1”，请检查磁盘空间和权限！|8|EBTQ_S"_qs.arg(
                               inTheWay.fileName())}));
    EXPECT_FALSE(list.IReportUI_PrintPreview() || list.IReportUI_DoPrint() || list.IReportUI_PrintSetup());
    EXPECT_EQ(printer.asked.size(), 1);
}

} // namespace ebtq::test

#include "fcxx_print_test.moc"
