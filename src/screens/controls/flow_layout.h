#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace ebtq {

/// Items side by side, as many as fit in a line, then on the next: a row of filters that a narrow window
/// folds and never cuts. What is left of a line goes to the items in it that want to grow.
class FlowLayout : public QLayout
{
    Q_OBJECT

public:
    explicit FlowLayout(QWidget *parent = nullptr);
    ~FlowLayout() override;

    /// Takes the layout over as one item that is never torn apart.
    void addLayout(QLayout *layout);

    void addItem(QLayoutItem *item) override;
    [[nodiscard]] int count() const override { return static_cast<int>(m_items.size()); }
    [[nodiscard]] QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;

private:
    struct Line
    {
        size_t first;
        size_t last; ///< one past it
        int width;
        int height;
    };
    [[nodiscard]] std::vector<Line> lines(int width) const;
    void place(const Line &line, const QRect &rect) const;
    [[nodiscard]] QSize withMargins(QSize size) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace ebtq
