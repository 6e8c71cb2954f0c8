#include "support/FailureReports.h"

#include "tools/process/Redirection.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <system_error>

namespace kelutv::test {

namespace {

/** The program's own standard output, and meanwhile the one that a test has put in its place. */
class ReportOutput {
public:
    ReportOutput() : mOwn(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0)) {
        if (mOwn < 0) {
            throw std::system_error(errno, std::generic_category(), "cannot keep standard output");
        }
    }
    void use() { mRedirection.emplace(STDOUT_FILENO, mOwn); }
    void giveBack() { mRedirection.reset(); }

private:
    const int mOwn;
    std::optional<process::Redirection> mRedirection;
};

class BeforeReport : public ::testing::EmptyTestEventListener {
public:
    explicit BeforeReport(ReportOutput& output) : mOutput(output) {}
    void OnTestPartResult(const ::testing::TestPartResult&) override { mOutput.use(); }

private:
    ReportOutput& mOutput;
};

class AfterReport : public ::testing::EmptyTestEventListener {
public:
    explicit AfterReport(ReportOutput& output) : mOutput(output) {}
    void OnTestPartResult(const ::testing::TestPartResult&) override { mOutput.giveBack(); }

private:
    ReportOutput& mOutput;
};

/** Listeners hear of a failure in their order, so the printer goes between the two. */
ReportOutput& surroundPrinter() {
    static ReportOutput output;
    ::testing::TestEventListeners& listeners = ::testing::UnitTest::GetInstance()->listeners();
    ::testing::TestEventListener* const printer = listeners.Release(listeners.default_result_printer());
    listeners.Append(new BeforeReport(output));
    listeners.Append(printer);
    listeners.Append(new AfterReport(output));
    return output;
}

} // namespace

void keepFailureReportsOutOfCaptures() { [[maybe_unused]] static const ReportOutput& output = surroundPrinter(); }

} // namespace kelutv::test
