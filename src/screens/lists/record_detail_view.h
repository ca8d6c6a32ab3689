#pragma once

#include <QList>
#include <QWidget>

#include <functional>
#include <span>

class QGridLayout;
class QHBoxLayout;
class QToolButton;

namespace ebtq {

class FlexGridView;
class RecordDetail;
class TabStripView;
class VSFlexGrid;

/// The place of a display field on its tab. Captions and fields form pairs, six of them side by side, so that
/// they line up on all tabs.
struct DetailPlace
{
    /// All but the plain ones are numbers and stand at the right.
    enum class Ink : quint8 { Plain, Number, Sale, Rent };
    /// The caption of some fields is the unit of the field to their left and is placed close to it.
    enum class Caption : quint8 { Own, UnitOfTheFieldBefore };

    int number;
    int row;
    int pair;
    int width = 1; ///< in pairs
    Ink ink = Ink::Plain;
    Caption caption = Caption::Own;
};

/// The screen of the tabs below a list: the tab strip and, below it, the panel of the active tab. A detail's
/// view adds its panels in the order of the tabs.
class RecordDetailView : public QWidget
{
    Q_OBJECT

public:
    /// What the tallest panel needs, whichever is shown: the list above does not move with the tabs.
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }
    /// Folded, only the tab strip is left.
    void setFolded(bool folded);
    [[nodiscard]] bool isFolded() const;

Q_SIGNALS:
    /// The person wants it folded or not: by the button in the strip, or by choosing a tab.
    void foldingWanted(bool folded);

protected:
    /// The keys that choose a tab work from anywhere in `keyScope`.
    RecordDetailView(RecordDetail &detail, QWidget *keyScope, QWidget *parent);

    QWidget *addPanel(int tab);
    /// A panel of fields; with `boxesRow` all boxes are side by side in that row.
    void addFields(int tab, std::span<const DetailPlace> places, int boxesRow = -1);
    /// A panel of the record's follow-ups.
    void addFollowUps(int tab, VSFlexGrid &grid);
    /// A panel of the records that match, with the button that shows why they do.
    void addMatching(int tab, VSFlexGrid &grid, const QString &emptyHint,
                     const std::function<void()> &showReasons);

private:
    void addField(QGridLayout &grid, QWidget &panel, const DetailPlace &place);
    void addBoxes(QGridLayout &grid, QWidget &panel, int row);
    /// A panel of one grid; the hint is shown by a load that worked and found nothing.
    QHBoxLayout *addGrid(int tab, VSFlexGrid &grid, const QString &emptyHint);

    RecordDetail &m_detail;
    TabStripView *m_tabs;
    QToolButton *m_folding;
    QWidget *m_panelArea;
    QList<QWidget *> m_panels;
};

} // namespace ebtq
