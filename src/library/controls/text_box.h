#pragma once

#include "library/controls/control.h"

namespace ebtq {

/// A box for free text, without help or check.
class TextBox : public Control
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY Change)
    Q_PROPERTY(bool MultiLine READ MultiLine CONSTANT)

public:
    enum class Lines { One, Many };

    explicit TextBox(const QString &name, int index = -1, Lines lines = Lines::One);
    [[nodiscard]] const QString &Text() const { return m_text; }
    /// Raises Change when the text changes, from code as from the user.
    void setText(const QString &text);
    [[nodiscard]] bool MultiLine() const { return m_lines == Lines::Many; }
    /// What a view calls on Enter in a box of one line.
    void pressReturn() { Q_EMIT ReturnPressed(); }

Q_SIGNALS:
    void Change();
    void ReturnPressed();

private:
    QString m_text;
    Lines m_lines;
};

} // namespace ebtq
