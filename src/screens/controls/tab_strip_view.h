#pragma once

#include "screens/controls/exchange.h"

#include <QTabBar>

namespace ebtq {

class qzVSTabCtl;

/// The widget of a tab strip; the panels are separate widgets. Alt with a tab's number chooses it from
/// anywhere in `keyScope`.
class TabStripView : public QTabBar
{
    Q_OBJECT

public:
    TabStripView(qzVSTabCtl &strip, QWidget *keyScope, QWidget *parent);

private:
    void follow();
    void addShortcut(int tab, QWidget *keyScope);

    qzVSTabCtl &m_strip;
    Exchange m_exchange;
};

} // namespace ebtq
