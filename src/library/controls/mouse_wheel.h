#pragma once

#include <QObject>

namespace ebtq {

class VSFlexGrid;

/// Wheel scrolling of a grid: a position between two ends that each turn of the wheel moves by one.
class MouseWheel : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] int Min() const { return m_min; }
    void setMin(int value) { m_min = value; }
    [[nodiscard]] int Max() const { return m_max; }
    void setMax(int value) { m_max = value; }
    [[nodiscard]] int Value() const { return m_value; }
    void setValue(int value) { m_value = value; }
    /// The grid whose wheel this follows; a view asks for it.
    void bind(VSFlexGrid *grid) { m_grid = grid; }
    [[nodiscard]] VSFlexGrid *grid() const { return m_grid; }
    /// What a view calls for `steps` turns, negative towards the top: moves the position within the ends and
    /// raises both events. Nothing while unbound.
    void turn(int steps);

Q_SIGNALS:
    void Wheel(int value);
    /// The steps themselves, also at an end of the range.
    void Turned(int steps);

private:
    int m_min = 0;
    int m_max = 0;
    int m_value = 0;
    VSFlexGrid *m_grid = nullptr;
};

} // namespace ebtq
