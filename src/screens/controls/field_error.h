#pragma once

#include <QLabel>

namespace ebtq {

/// The bubble below a field that was refused: it shows the reason on top of the form, without taking keyboard
/// or mouse, and follows the field.
class FieldError : public QLabel
{
    Q_OBJECT

public:
    /// `field` outlives the bubble, unless it was dropped.
    FieldError(const QString &message, QWidget &field);
    /// Hides it and deletes it later: a window that hides goes through a list of its children, of which this
    /// is one. Nobody finds it by its name any more.
    void drop();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void placeBelow(const QWidget &field);

    const QWidget &m_field;
};

} // namespace ebtq
