#pragma once

#include "library/followups/follow_up_list.h"

namespace ebtq {

/// The list of the follow-ups of all listings and customers, the newest first; at first the newest hundred.
class Cx_Gj : public FollowUpList
{
    Q_OBJECT

public:
    /// Numbers of the filter fields.
    enum Field : int { From = 0, To = 1, Department = 2, Agent = 3, Limit = 4 };

    explicit Cx_Gj(Desktop &desktop);

protected:
    SqlText statement() override;
};

} // namespace ebtq
