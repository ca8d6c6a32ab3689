#include "shell/print/print_engine.h"

#include "shell/print/print_desk.h"
#include "shell/print/print_run.h"

namespace ebtq::shell {

namespace {

/// The text of what the body throws; empty when it throws nothing.
template<class Body> QString failureOf(Body body)
{
    try {
        body();
        return {};
    } catch (const std::exception &failure) {
        return QString::fromUtf8(failure.what());
    }
}

} // namespace

QString PrintEngine::PrintOut(const Job &job, bool bPrint)
{
    return failureOf([&] {
        PrintRun run(job, m_desk);
        if (bPrint)
            run.print();
        else if (run.layOut())
            m_desk.preview(run);
    });
}

QString PrintEngine::SetUp(const Job &job)
{
    return failureOf([&] { PrintRun(job, m_desk).setUp(); });
}

} // namespace ebtq::shell
