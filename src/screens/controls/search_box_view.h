#pragma once

#include <QLineEdit>

namespace ebtq {

class SearchBox;

/// The widget of a SearchBox: Ctrl+F focuses it, Enter searches at once, Escape empties it.
class SearchBoxView : public QLineEdit
{
    Q_OBJECT

public:
    SearchBoxView(SearchBox &box, QWidget *parent);
    /// Ctrl+F leads into the box.
    void takeFindKey();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    SearchBox &m_box;
};

} // namespace ebtq
