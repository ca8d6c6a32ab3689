#include "library/controls/splitter.h"

#include "library/controls/control_collection.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr double spaceBelow = 40;
constexpr double spaceAtRight = 40;
constexpr double spaceAboveFirst = 30; ///< the first pane begins above the bar
constexpr double widest = 100'000;

constexpr const char *savedProperties[] = {"ControlName1", "ControlName2", "SplitterWidth", "ControlVisible1",
                                           "ControlVisible2"};

} // namespace

Splitter::Splitter(const QString &name, int index)
    : Control(u"Splitter"_s, name, index)
{}

void Splitter::setControlName(Pane pane, const QString &name)
{
    m_panes[pane].name = name;
    resolve(m_panes[pane]);
    Resize();
}

void Splitter::setSiblings(const ControlCollection *siblings)
{
    m_siblings = siblings;
    for (PaneState &pane : m_panes)
        resolve(pane);
}

/// A pane never is the bar.
void Splitter::resolve(PaneState &pane) const
{
    Control *found = m_siblings ? m_siblings->find(pane.name) : nullptr;
    pane.control = found == this ? nullptr : found;
}

void Splitter::setControlVisible(Pane pane, bool visible)
{
    PaneState &state = m_panes[pane];
    if (state.isVisible == visible)
        return;
    state.isVisible = visible;
    if (state.control)
        state.control->setVisible(visible);
    Resize();
    Q_EMIT Resized(qRound(m_left), true);
}

void Splitter::setSplitterWidth(float twips)
{
    if (!std::isfinite(twips))
        return;
    m_width = std::clamp(static_cast<double>(twips), 0.0, widest);
    Resize();
}

void Splitter::setBackColor(int color)
{
    m_backColor = color;
    Q_EMIT stateChanged();
}

void Splitter::setLeft(int twips)
{
    if (twips < 0 || twips > widest || twips == Left())
        return;
    m_formerLeft = twips;
    m_formerParentWidth = m_parentWidth;
    m_left = twips;
    Resize();
    Q_EMIT Resized(qRound(m_left), true);
}

void Splitter::ReadProperties(const QVariantMap &bag)
{
    for (const char *name : savedProperties) {
        if (const QVariant value = bag.value(QLatin1String(name)); value.isValid())
            setProperty(name, value);
    }
}

QVariantMap Splitter::WriteProperties() const
{
    QVariantMap bag;
    for (const char *name : savedProperties)
        bag.insert(QLatin1String(name), property(name));
    return bag;
}

void Splitter::setParentSize(double width, double height)
{
    m_parentWidth = std::max(0.0, width);
    m_parentHeight = std::max(0.0, height);
    Resize();
}

void Splitter::setMinimum(Pane pane, double width)
{
    m_panes[pane].minimum = std::max(PaneState().minimum, width);
}

void Splitter::Resize()
{
    if (m_parentWidth <= 0)
        return;
    if (!ControlVisible1())
        m_left = -m_width;
    else if (!ControlVisible2())
        m_left = m_parentWidth;
    else
        m_left = within(proportionalLeft());
    m_height = std::max(0.0, m_parentHeight - barTop - spaceBelow);
    if (m_formerParentWidth <= 0)
        m_formerParentWidth = m_parentWidth;
    Q_EMIT placed();
}

/// From where the user left the bar, so that a parent that shrinks and grows again gives the same place.
double Splitter::proportionalLeft() const
{
    return m_formerParentWidth > 0 ? m_parentWidth * m_formerLeft / m_formerParentWidth : m_formerLeft;
}

/// In a parent that is too narrow for both, the second pane keeps its minimum.
double Splitter::within(double left) const
{
    const double rightmost = m_parentWidth - m_width - m_panes[Second].minimum;
    return std::max(0.0, std::min(std::max(left, m_panes[First].minimum), rightmost));
}

void Splitter::drag(double movement)
{
    if (!m_isDragging || m_parentWidth <= 0 || !ControlVisible1() || !ControlVisible2())
        return;
    m_left = within(m_left + movement);
    m_formerLeft = m_left;
    m_formerParentWidth = m_parentWidth;
    Q_EMIT placed();
    Q_EMIT Resized(qRound(m_left), false);
}

QRectF Splitter::panePlace(Pane pane) const
{
    const double height = m_height;
    if (pane == First)
        return {0, barTop - spaceAboveFirst, ControlVisible2() ? m_left : m_parentWidth, height};
    const double edge = ControlVisible1() ? m_left + m_width : 0;
    const bool leavesSpace = ControlVisible1() && edge < m_parentWidth;
    return {edge, barTop, std::max(0.0, m_parentWidth - edge - (leavesSpace ? spaceAtRight : 0)), height};
}

} // namespace ebtq
