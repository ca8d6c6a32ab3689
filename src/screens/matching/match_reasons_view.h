#pragma once

#include <QWidget>

namespace ebtq {

class MatchReasons;

/// The panel of a request's or a listing's matches: criteria with their counts, and the near misses below.
class MatchReasonsView : public QWidget
{
    Q_OBJECT

public:
    MatchReasonsView(MatchReasons &reasons, QWidget *parent);

    [[nodiscard]] QSize sizeHint() const override;
};

} // namespace ebtq
