#pragma once

#include "host/panel_presenter.h"
#include "shell/panels/panel_model.h"
#include "shell/panels/popup.h"

#include <optional>

class QLabel;
class QLineEdit;
class QTreeView;

namespace ebtq::shell {

/// A panel on the screen: a find box, which keeps the keyboard, above the rows. Arrows and the page keys move
/// through the rows, Enter and a double click choose, Escape leaves, everything else is typed into the find
/// box.
class PanelPopup : public Popup
{
    Q_OBJECT

public:
    /// `panel` outlives the popup.
    explicit PanelPopup(const host::Panel &panel);
    [[nodiscard]] std::optional<qsizetype> chosen() const { return m_chosen; }

    bool eventFilter(QObject *watched, QEvent *event) override;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void find(const QString &text);
    void choose(const QModelIndex &index);
    void setUpView();
    void sizeColumns();
    [[nodiscard]] int rowsHeight() const;
    void setUpLayout();

    const host::Panel &m_panel;
    PanelModel m_model;
    QLineEdit *m_find;
    QTreeView *m_view;
    QLabel *m_nothing;
    std::optional<qsizetype> m_chosen;
};

} // namespace ebtq::shell
