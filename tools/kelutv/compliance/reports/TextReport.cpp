#include "tools/kelutv/compliance/reports/TextReport.h"

#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/compliance/reports/ExchangeText.h"
#include "tools/kelutv/compliance/results/Latencies.h"
#include "tools/kelutv/compliance/results/RunFile.h"
#include "tools/kelutv/output/Streams.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Shown.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace kelutv::tool::compliance {

namespace {

/** What fits into a narrow terminal. */
constexpr std::size_t kMostOfProgress = 76;
/** Every check would cost more than it tells. */
constexpr std::size_t kProgressStep = 25;

Style styleOf(Verdict verdict) {
    switch (verdict) {
    case Verdict::passed:
        return Style::Good;
    case Verdict::failed:
        return Style::Bad;
    default:
        return Style::Number;
    }
}

/** `12 passed, 1 failed`: those that there are. */
std::string countsText(const std::vector<CheckResult>& results) {
    std::vector<std::string> parts;
    for (const Verdict verdict : allVerdicts()) {
        const std::size_t count = countOf(results, verdict);
        if (count != 0 || verdict == Verdict::failed) {
            parts.push_back(std::to_string(count) + ' ' + wordsOf(verdict));
        }
    }
    return joined(parts, ", ");
}

std::string latencyText(const LatencySummary& summary) {
    return summary.count == 0 ? ""
                              : "; " + counted(summary.count, "answer") + ", p50 " + millisecondsText(summary.p50) +
                                    ", p99 " + millisecondsText(summary.p99);
}

std::vector<CheckResult> resultsOf(const Run& run, const std::string& module) {
    std::vector<CheckResult> results;
    for (const CheckResult& result : run.results) {
        if (result.module == module) {
            results.push_back(result);
        }
    }
    return results;
}

Json sumOf(const Run& run) {
    Json sum = Json::object();
    for (const Verdict verdict : allVerdicts()) {
        sum[nameOf(verdict)] = countOf(run.results, verdict);
    }
    return {{"checks", run.results.size()}, {"verdicts", sum}, {"seconds", run.seconds}};
}

} // namespace

TextReport::TextReport(const Output& output, std::size_t all, bool isWordy)
    : mOutput(output), mAll(all), mIsWordy(isWordy),
      mHasProgress(!output.json && !output.quiet && ::isatty(::fileno(ownError())) == 1) {}

TextReport::~TextReport() { hideProgress(); }

void TextReport::add(const CheckResult& result) {
    ++mMade;
    mFailed += result.verdict == Verdict::failed ? 1 : 0;
    mOutput.document(documentOf(result));
    if (mIsWordy || result.verdict == Verdict::failed) {
        hideProgress();
        tell(result);
    }
    showProgress(result);
}

void TextReport::tell(const CheckResult& result) const {
    mOutput.line(mOutput.styled(styleOf(result.verdict), wordsOf(result.verdict)) + "  " +
                 mOutput.styled(Style::Name, result.id) +
                 (result.reason.empty() ? "" : ": " + wire::shown(result.reason, wire::kMostOfPath)));
    if (result.verdict == Verdict::failed) {
        mOutput.line("    " + result.sentence);
        if (result.exchange) {
            const ExchangeText text = textOf(*result.exchange);
            mOutput.line("    " + text.request + " -> " + text.reply);
        }
    }
}

void TextReport::showProgress(const CheckResult& result) {
    if (!mHasProgress || (mMade % kProgressStep != 1 && mMade != mAll)) {
        return;
    }
    const std::string text = std::to_string(mMade) + " of " + std::to_string(mAll) + ", " + std::to_string(mFailed) +
                             " failed: " + result.id;
    std::fprintf(ownError(), "\r\x1b[K%s", wire::shown(text, kMostOfProgress).c_str());
    mIsProgressShown = true;
}

void TextReport::hideProgress() {
    if (mIsProgressShown) {
        std::fputs("\r\x1b[K", ownError());
        mIsProgressShown = false;
    }
}

void TextReport::finish(const Run& run) {
    hideProgress();
    for (const std::string& module : modulesOf(run.results)) {
        const std::vector<CheckResult> results = resultsOf(run, module);
        const bool isBad = countOf(results, Verdict::failed) != 0;
        mOutput.line(mOutput.styled(isBad ? Style::Bad : Style::Good, module) + ": " + countsText(results) +
                     latencyText(summaryOf(latenciesWhere(results, &CheckResult::module, module))));
    }
    mOutput.line(counted(run.results.size(), "check") + ": " + countsText(run.results));
    mOutput.document(sumOf(run));
}

} // namespace kelutv::tool::compliance
