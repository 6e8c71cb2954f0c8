#pragma once

#include "tools/kelutv/compliance/results/Run.h"
#include "tools/kelutv/output/Output.h"

#include <cstddef>
#include <string>

namespace kelutv::tool::compliance {

/**
 * Tells of a run while it is made: a line for each check that failed, with what was exchanged, how far it is where
 * standard error is a terminal, and at the end what became of the modules.
 */
class TextReport {
public:
    /** @param all how many checks there will be @param isWordy whether checks that passed have lines, too */
    TextReport(const Output& output, std::size_t all, bool isWordy = false);
    /** Takes the line of progress away. */
    ~TextReport();
    TextReport(const TextReport&) = delete;
    TextReport& operator=(const TextReport&) = delete;

    void add(const CheckResult& result);

    /** Summary by module, latencies and counts. With `json` a document of the counts. */
    void finish(const Run& run);

private:
    void showProgress(const CheckResult& result);
    void hideProgress();
    void tell(const CheckResult& result) const;

    const Output& mOutput;
    std::size_t mAll;
    bool mIsWordy;
    bool mHasProgress;
    bool mIsProgressShown = false;
    std::size_t mMade = 0;
    std::size_t mFailed = 0;
};

} // namespace kelutv::tool::compliance
