#include "shell/tour/print_steps.h"

#include "shell/tour/tour.h"

#include <QApplication>
#include <QFile>
#include <QMenu>
#include <QSpinBox>

namespace ebtq::shell {

namespace {

QString pdfFile(const Tour &tour)
{
    return tour.folder() + QStringLiteral("/list.pdf");
}

/// In the open context menu of the list.
void withMenu(Tour &tour, const std::function<void()> &inside)
{
    Person &person = tour.person();
    person.focus(QStringLiteral("VS"));
    person.withPopup([&] { person.askForMenu(QStringLiteral("VS")); }, inside);
}

void openMenu(Tour &tour)
{
    withMenu(tour, [&] {
        tour.takePicture(QStringLiteral("menu"));
        const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        Tour::expect(menu && menu->actions().size() > 6, QStringLiteral("右键菜单应列出列表的命令"));
        tour.person().press(Qt::Key_Escape);
    });
}

void setUpPage(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { person.click(QStringLiteral("PageSetup")); },
                      [&] {
                          tour.takePicture(QStringLiteral("page-setup"));
                          person.press(Qt::Key_Escape);
                      });
}

void savePdf(Tour &tour)
{
    Person &person = tour.person();
    QFile::remove(pdfFile(tour));
    person.withDialog([&] { person.click(QStringLiteral("SavePdf")); },
                      [&] {
                          person.focus(QStringLiteral("fileNameEdit"));
                          person.press(Qt::Key_A, Qt::ControlModifier);
                          person.type(pdfFile(tour));
                          tour.takePicture(QStringLiteral("save-pdf"));
                          person.press(Qt::Key_Return);
                      });
}

void lookThroughPages(Tour &tour)
{
    Person &person = tour.person();
    tour.takePicture(QStringLiteral("first-page"));
    auto &page = person.see<QSpinBox>(QStringLiteral("Page"));
    tour.note(QStringLiteral("  页数：%1").arg(page.maximum()));
    Tour::expect(page.maximum() > 1, QStringLiteral("列表应有多页"));
    page.setValue(page.maximum());
    tour.takePicture(QStringLiteral("last-page"));
    setUpPage(tour);
    savePdf(tour);
    person.click(QStringLiteral("ClosePreview"));
}

void preview(Tour &tour)
{
    Person &person = tour.person();
    person.withDialog([&] { withMenu(tour, [&] { person.type(QStringLiteral("v")); }); },
                      [&] { lookThroughPages(tour); });
}

void seePdf(Tour &tour)
{
    QFile file(pdfFile(tour));
    Tour::expect(file.open(QIODevice::ReadOnly) && file.peek(5) == "%PDF-",
                 QStringLiteral("应已存为 PDF 文件"));
    tour.note(QStringLiteral("  PDF：%1 字节").arg(file.size()));
}

void stay(Tour &) {}

constexpr TourStep steps[] = {
    {u"列表的右键菜单", u"menu-closed", openMenu, stay},
    {u"打印预览、页面设置与 PDF", u"preview-closed", preview, seePdf},
};

} // namespace

std::span<const TourStep> printSteps()
{
    return steps;
}

} // namespace ebtq::shell
