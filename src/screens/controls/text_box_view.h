#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

namespace ebtq {

class TextBox;

/// The widget of a TextBox of one line.
class TextBoxView : public QLineEdit
{
    Q_OBJECT

public:
    TextBoxView(TextBox &box, QWidget *parent);
};

/// The widget of a TextBox of many lines. Tab leaves it, as in the fields around it.
class TextAreaView : public QPlainTextEdit
{
    Q_OBJECT

public:
    TextAreaView(TextBox &box, QWidget *parent);
};

} // namespace ebtq
