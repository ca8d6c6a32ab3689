#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class QToolButton;

namespace ebtq {

class FlowLayout;

/// The filters above a list in one line, and what always stays in sight after them, such as the search.
/// Filters that do not fit fold away behind a button, which says how many of them are in use and opens
/// further lines for all.
class FilterBar : public QWidget
{
    Q_OBJECT

public:
    explicit FilterBar(QWidget *parent);

    /// Fields that stay together, and whether the list is filtered by them.
    void addFilter(QWidget *filter, std::function<bool()> isUsed);
    /// What is never folded away; after all filters.
    void addPinned(QWidget *widget);
    /// Unfolds for a field that is folded away and gives it the keyboard.
    void reveal(QWidget &field);
    /// A filter came into use or went out of it.
    void followUse();

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    struct Filter
    {
        QWidget *widget;
        std::function<bool()> isUsed;
    };
    void makeButton();
    void arrange();
    [[nodiscard]] int widthOf(const QWidget &widget) const;
    /// How many filters stand in the line; all when they fit or are unfolded.
    [[nodiscard]] size_t countInLine() const;

    FlowLayout *m_row;
    QToolButton *m_more = nullptr; ///< from the first pinned widget on: Tab goes in the order of making
    std::vector<Filter> m_filters;
    std::vector<QWidget *> m_pinned;
};

} // namespace ebtq
