#pragma once

#include <QAbstractScrollArea>

#include <memory>

namespace ebtq::shell {

class Printout;

/// The pages of a printout one below the other. Only those in sight are painted, so that thousands of pages
/// open at once.
class PageView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit PageView(QWidget *parent);

    /// Shows these pages.
    void setPrintout(std::shared_ptr<const Printout> printout);
    /// 1 is the size on paper; 0 fits the window's width.
    void setZoom(double zoom);
    /// The one in force.
    [[nodiscard]] double zoom() const;
    /// From 0; the one that fills most of the window.
    [[nodiscard]] int currentPage() const;
    void showPage(int page);

Q_SIGNALS:
    void currentPageChanged(int page);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void layOut();
    [[nodiscard]] QSizeF pageSize() const;
    [[nodiscard]] double stride() const;
    void paintPage(QPainter &painter, int page, const QRectF &place) const;

    std::shared_ptr<const Printout> m_printout;
    double m_zoom = 0;
};

} // namespace ebtq::shell
