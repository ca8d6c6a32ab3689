#pragma once

#include "library/controls/control.h"

#include <QPointer>
#include <QRectF>
#include <QVariantMap>

#include <array>

namespace ebtq {

class ControlCollection;

/// A thin vertical bar between two siblings, which it places and can hide. It counts in twips; the panes are
/// named, and a name that nothing bears leaves its side without a pane.
class Splitter : public Control
{
    Q_OBJECT
    Q_PROPERTY(QString ControlName1 READ ControlName1 WRITE setControlName1)
    Q_PROPERTY(QString ControlName2 READ ControlName2 WRITE setControlName2)
    Q_PROPERTY(float SplitterWidth READ SplitterWidth WRITE setSplitterWidth)
    Q_PROPERTY(bool ControlVisible1 READ ControlVisible1 WRITE setControlVisible1)
    Q_PROPERTY(bool ControlVisible2 READ ControlVisible2 WRITE setControlVisible2)
    Q_PROPERTY(int BackColor READ BackColor WRITE setBackColor NOTIFY stateChanged)
    Q_PROPERTY(int Left READ Left WRITE setLeft NOTIFY Resized)

public:
    enum Pane { First, Second };

    explicit Splitter(const QString &name = QStringLiteral("Splitter"), int index = -1);

    [[nodiscard]] QString ControlName1() const { return m_panes[First].name; }
    void setControlName1(const QString &name) { setControlName(First, name); }
    [[nodiscard]] QString ControlName2() const { return m_panes[Second].name; }
    void setControlName2(const QString &name) { setControlName(Second, name); }
    [[nodiscard]] bool ControlVisible1() const { return m_panes[First].isVisible; }
    void setControlVisible1(bool visible) { setControlVisible(First, visible); }
    [[nodiscard]] bool ControlVisible2() const { return m_panes[Second].isVisible; }
    void setControlVisible2(bool visible) { setControlVisible(Second, visible); }
    [[nodiscard]] float SplitterWidth() const { return static_cast<float>(m_width); }
    void setSplitterWidth(float twips);
    /// A colour number, red in its lowest byte; negative for the theme's.
    [[nodiscard]] int BackColor() const { return m_backColor; }
    void setBackColor(int color);
    /// Where the user wants the bar, also while a pane is hidden: what a layout keeps. Numbers that no screen
    /// has are refused.
    [[nodiscard]] int Left() const { return qRound(m_formerLeft); }
    void setLeft(int twips);

    /// Among whose controls the panes are; the panes' Visible follows ControlVisible then.
    void setSiblings(const ControlCollection *siblings);
    /// The five properties that are saved with a screen; what is missing in the bag stays as it is.
    void ReadProperties(const QVariantMap &bag);
    [[nodiscard]] QVariantMap WriteProperties() const;
    /// Places bar and panes in the parent; without a size of the parent they stay.
    void Resize();

    // What the view passes on

    void setParentSize(double width, double height);
    /// The least that a pane needs, by itself and never below the usual minimum.
    void setMinimum(Pane pane, double width);
    void beginDrag() { m_isDragging = true; }
    /// The bar moves by so much; nothing without a drag.
    void drag(double movement);
    void endDrag() { m_isDragging = false; }
    [[nodiscard]] QRectF barPlace() const { return {m_left, barTop, m_width, m_height}; }
    [[nodiscard]] QRectF panePlace(Pane pane) const;

Q_SIGNALS:
    /// The bar has moved, or a pane was shown or hidden; `isSettled` is false while the user drags.
    void Resized(int left, bool isSettled);
    /// For views: bar and panes have new places.
    void placed();

private:
    static constexpr double barTop = 30;
    struct PaneState
    {
        QString name;
        QPointer<Control> control;
        bool isVisible = true;
        double minimum = 1500;
    };
    void setControlName(Pane pane, const QString &name);
    void setControlVisible(Pane pane, bool visible);
    void resolve(PaneState &pane) const;
    [[nodiscard]] double within(double left) const;
    [[nodiscard]] double proportionalLeft() const;

    std::array<PaneState, 2> m_panes;
    const ControlCollection *m_siblings = nullptr;
    double m_width = 75;
    double m_left = 3600;
    double m_height = 0;
    double m_formerLeft = m_left;
    double m_formerParentWidth = 0; ///< when m_formerLeft was set; 0: before the first placing
    double m_parentWidth = 0;
    double m_parentHeight = 0;
    int m_backColor = -1;
    bool m_isDragging = false;
};

} // namespace ebtq
