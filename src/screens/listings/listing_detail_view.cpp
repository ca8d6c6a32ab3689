#include "screens/listings/listing_detail_view.h"

#include "library/listings/listing_detail.h"
#include "library/listings/listing_detail_fields.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

using Ink = DetailPlace::Ink;
using Caption = DetailPlace::Caption;

constexpr DetailPlace listingPlaces[] = {
    {0, 0, 0},
    {1, 0, 1},
    {3, 0, 2},
    {4, 0, 3},
    {21, 0, 4},
    {7, 0, 5, 1, Ink::Number},
    {5, 1, 0, 1, Ink::Number},
    {17, 1, 1},
    {22, 1, 2},
    {40, 1, 3},
    {39, 1, 4},
    {44, 1, 5},
    {45, 2, 0},
    {46, 2, 1},
    {47, 2, 2},
    {34, 2, 3},
    {11, 2, 4},
    {13, 2, 5},
    {15, 3, 0},
    {8, 3, 1},
    {12, 3, 2},
    {9, 3, 3},
    {6, 3, 4},
    {41, 3, 5},
    {48, 4, 0, 2},
    {42, 4, 2, 2},
    {43, 4, 4, 2},
};

constexpr DetailPlace ownerPlaces[] = {
    {2, 0, 0, 2},
    {14, 0, 2},
    {23, 0, 3},
    {24, 0, 4},
    {37, 0, 5, 1, Ink::Number},
    {25, 1, 0, 1, Ink::Sale},
    {26, 1, 1, 1, Ink::Sale, Caption::UnitOfTheFieldBefore},
    {27, 1, 2, 1, Ink::Number, Caption::UnitOfTheFieldBefore},
    {28, 1, 3},
    {50, 1, 4},
    {51, 1, 5},
    {29, 2, 0, 1, Ink::Rent},
    {30, 2, 1, 1, Ink::Rent, Caption::UnitOfTheFieldBefore},
    {31, 2, 2, 1, Ink::Number, Caption::UnitOfTheFieldBefore},
    {32, 2, 3, 1, Ink::Number},
    {52, 2, 4},
    {53, 2, 5},
};
constexpr int boxesRow = 3;

} // namespace

ListingDetailView::ListingDetailView(ListingDetail &detail, QWidget *keyScope, QWidget *parent)
    : RecordDetailView(detail, keyScope, parent)
{
    addFields(ListingTab, listingPlaces);
    addFields(OwnerTab, ownerPlaces, boxesRow);
    addFollowUps(FollowUpsTab, detail.VsGj());
    addMatching(CustomersTab, detail.VsP(), u"没有匹配的客源"_s, [&detail] { detail.showReasons(); });
    addPictures(detail);
}

void ListingDetailView::addPictures(ListingDetail &detail)
{
    QWidget *panel = addPanel(PicturesTab);
    auto *hint = new QLabel(panel);
    connect(&detail, &ListingDetail::TabShown, hint, [&detail, hint](int tab, bool done) {
        if (tab == PicturesTab)
            hint->setText(done ? detail.picturesText() : QString());
    });
    hint->setProperty("kind", u"hint"_s);
    hint->setAlignment(Qt::AlignCenter);
    auto *column = new QVBoxLayout(panel);
    column->addWidget(hint);
}

} // namespace ebtq
