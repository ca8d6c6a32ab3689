#pragma once

#include <QWidget>

namespace ebtq {

class Splitter;

/// The bar of a Splitter between two of its siblings, the widgets that bear the names of its panes. The
/// parent has no layout: the bar places itself and them. Here twips become pixels.
class SplitterView : public QWidget
{
    Q_OBJECT

public:
    SplitterView(Splitter &splitter, QWidget *parent);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void reportParent();
    void place();
    void placePane(int pane, const QString &name, bool isVisible);
    [[nodiscard]] QWidget *sibling(const QString &name) const;
    [[nodiscard]] QRect pixels(const QRectF &twips) const;

    Splitter &m_splitter;
    double m_pressed = 0; ///< where in the bar
};

} // namespace ebtq
