#pragma once

#include <QDialog>

#include <exception>
#include <functional>

class QHBoxLayout;
class QLabel;
class QSpinBox;

namespace ebtq::shell {

class PageView;
class PrintRun;

/// The pages of a run as they will be printed, with what can be done from there.
class PreviewDialog : public QDialog
{
    Q_OBJECT

public:
    /// The run is laid out and outlives the dialog.
    PreviewDialog(PrintRun &run, QWidget *parent);

    /// Shows it; throws what went wrong in something done from here, which closes it.
    void run();

private:
    [[nodiscard]] QWidget *makeToolBar();
    void addButton(QHBoxLayout &row, const QString &name, const QString &caption, std::function<void()> act);
    void addPageBox(QHBoxLayout &row);
    template<class Act> void attempt(Act act);
    void setUpPage();
    void followPages();

    PrintRun &m_run;
    PageView *m_pages;
    QSpinBox *m_page;
    QLabel *m_count;
    std::exception_ptr m_failure;
};

} // namespace ebtq::shell
