#pragma once

#include "shell/start/start_page.h"

class QProgressBar;

namespace ebtq::shell {

/// Says what will be done, and does it, with its progress.
class FinishPage : public StartPage
{
    Q_OBJECT

public:
    explicit FinishPage(StartDraft &draft);
    void initializePage() override;
    [[nodiscard]] int nextId() const override { return -1; }

protected:
    void takeOver() override;

private:
    QLabel *m_summary;
    QProgressBar *m_progress;
};

} // namespace ebtq::shell
