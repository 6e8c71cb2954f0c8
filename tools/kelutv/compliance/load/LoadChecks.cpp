#include "tools/kelutv/compliance/load/LoadChecks.h"

#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/compliance/load/Crowd.h"
#include "tools/kelutv/compliance/results/Latencies.h"

#include <map>
#include <utility>

namespace kelutv::tool::compliance {

namespace {

constexpr std::size_t kCallers[] = {1, 2, 4, 8, 16, 32, 64};

/** What a crowd came to; each calls once, whatever is to be known of it. */
const CrowdReport& reportOf(const CrowdSize& size) {
    static std::map<std::pair<std::size_t, std::size_t>, CrowdReport> reports;
    const auto key = std::make_pair(size.processes, size.threads);
    const auto found = reports.find(key);
    return found != reports.end() ? found->second : reports.emplace(key, callAtOnce(size)).first->second;
}

Subject loadSubject(const CrowdSize& size, const std::string& aspect, const std::string& sentence) {
    const std::string kind = size.processes > 1 || size.threads == 1 ? "processes" : "threads";
    return {"load." + kind + '.' + std::to_string(size.callers()) + '.' + aspect, "load", "service", "", sentence};
}

/** Makes a crowd call. */
class LoadCheck : public Check {
public:
    LoadCheck(const CrowdSize& size, const std::string& aspect, const std::string& sentence)
        : Check(loadSubject(size, aspect, sentence)), mSize(size) {}

    bool startsProcesses() const override { return true; }

    Outcome run(Television& television) const override {
        const CrowdReport& report = reportOf(mSize);
        if (!report.complaint.empty()) {
            return {Verdict::failed, report.complaint, std::nullopt};
        }
        return judge(report, television);
    }

private:
    virtual Outcome judge(const CrowdReport& report, Television& television) const = 0;

    CrowdSize mSize;
};

class AnswersCheck : public LoadCheck {
public:
    explicit AnswersCheck(const CrowdSize& size)
        : LoadCheck(
              size, "answers",
              "Who calls at the same time as others gets the answer to what it asked: one is never given another's.") {}

private:
    Outcome judge(const CrowdReport& report, Television& television) const override {
        television.add(report.latencies);
        if (report.wrong == 0) {
            return {};
        }
        return {Verdict::failed,
                std::to_string(report.wrong) + " of " + std::to_string(report.calls) +
                    " answers were not those to what was asked",
                report.firstWrong};
    }
};

class LatencyCheck : public LoadCheck {
public:
    LatencyCheck(const CrowdSize& size, const std::string& aspect, const std::string& sentence,
                 std::chrono::nanoseconds LatencySummary::*measure, std::optional<std::chrono::nanoseconds> limit)
        : LoadCheck(size, aspect, sentence), mMeasure(measure), mLimit(limit) {}

    std::string whyLeftOut() const override { return mLimit ? "" : "no limit was given; --median and --tail do"; }

private:
    Outcome judge(const CrowdReport& report, Television& /*television*/) const override {
        const std::chrono::nanoseconds time = summaryOf(report.latencies).*mMeasure;
        if (time <= *mLimit) {
            return {};
        }
        return {Verdict::failed, "took " + millisecondsText(time) + ", not " + millisecondsText(*mLimit), std::nullopt};
    }

    std::chrono::nanoseconds LatencySummary::*mMeasure;
    std::optional<std::chrono::nanoseconds> mLimit;
};

void add(Checks& checks, const CrowdSize& size, const Terms& terms) {
    checks.push_back(std::make_unique<AnswersCheck>(size));
    checks.push_back(std::make_unique<LatencyCheck>(
        size, "p50", "Half of the answers come within the limit of --median.", &LatencySummary::p50, terms.p50));
    checks.push_back(std::make_unique<LatencyCheck>(
        size, "p99", "99 of a hundred answers come within the limit of --tail.", &LatencySummary::p99, terms.p99));
}

} // namespace

void addLoadChecks(Checks& checks, const Terms& terms) {
    for (const std::size_t callers : kCallers) {
        if (callers > 1) {
            add(checks, {1, callers}, terms);
        }
        add(checks, {callers, 1}, terms);
    }
}

} // namespace kelutv::tool::compliance
