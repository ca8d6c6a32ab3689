#pragma once

#include "screens/lists/record_detail_view.h"

namespace ebtq {

class ListingDetail;

/// The screen of the tabs below the list of listings.
class ListingDetailView : public RecordDetailView
{
    Q_OBJECT

public:
    ListingDetailView(ListingDetail &detail, QWidget *keyScope, QWidget *parent);

private:
    void addPictures(ListingDetail &detail);
};

} // namespace ebtq
