#pragma once

#include <QLabel>

namespace ebtq {

/// The bubble below a field that was refused: it says why and lies over what is there, without taking
/// keyboard or mouse.
class FieldError : public QLabel
{
    Q_OBJECT

public:
    FieldError(const QString &message, const QWidget &field);

private:
    void placeBelow(const QWidget &field);
};

} // namespace ebtq
