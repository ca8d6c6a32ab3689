#pragma once

#include "shell/print/print_settings.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QSpinBox;

namespace ebtq::shell {

/// The page set-up of a list.
class SetupDialog : public QDialog
{
    Q_OBJECT

public:
    SetupDialog(const PrintSettings &settings, QWidget *parent);

    [[nodiscard]] PrintSettings settings() const;

private:
    void addFields(QFormLayout &form);
    [[nodiscard]] QWidget *makeMargins();
    void addButtons();
    void show(const PrintSettings &settings);

    QComboBox *m_paper;
    QComboBox *m_orientation;
    QDoubleSpinBox *m_margins[4]; ///< left, top, right, bottom
    QCheckBox *m_fitsWidth;
    QDoubleSpinBox *m_titleSize;
    QSpinBox *m_copies;
};

} // namespace ebtq::shell
