#pragma once

#include <QList>
#include <QWidget>

class QGridLayout;

namespace ebtq {

class Control;
class FlexGridView;
class ListingDetail;
class TabStripView;
class VSFlexGrid;

/// The screen of a listing's detail: the tab strip and, below it, the panel of the active tab.
class ListingDetailView : public QWidget
{
    Q_OBJECT

public:
    /// The keys that choose a tab work from anywhere in `keyScope`.
    ListingDetailView(ListingDetail &detail, QWidget *keyScope, QWidget *parent);

    /// What the tallest panel needs, whichever is shown: the list above does not move with the tabs.
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }

private:
    void addPanels();
    QWidget *addPanel(int tab);
    void addFields(int tab);
    void addBoxes(QGridLayout &grid, QWidget &panel);
    void addGrid(int tab, VSFlexGrid &grid, const QString &emptyHint);
    void addPictures();

    ListingDetail &m_detail;
    TabStripView *m_tabs;
    QList<QWidget *> m_panels;
};

} // namespace ebtq
