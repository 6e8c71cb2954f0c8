#include "tools/kelutv/compliance/Judging.h"

#include "tools/kelutv/compliance/Surroundings.h"
#include "tools/kelutv/compliance/knowledge/KnownFailures.h"
#include "tools/kelutv/compliance/reports/TextReport.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Shown.h"

#include <chrono>
#include <utility>

namespace kelutv::tool::compliance {

namespace {

/** The words of the command line that choose what is checked. */
std::vector<std::string> choiceIn(const JudgingOrder& order) {
    std::vector<std::string> words = order.words;
    for (const std::string& name : order.order.terms.allowed) {
        words.insert(words.end(), {"--allow", name});
    }
    return words;
}

void tellUnused(const KnownFailures& known, const Output& output) {
    for (const std::string& check : known.unused()) {
        output.message("kelutv: --expect: no check of this run is meant by '" + wire::shown(check) + '\'');
    }
}

} // namespace

Progress progressOn(const Output& output, const std::string& journal, Tell tell) {
    return {[&output, journal](std::size_t values) {
                output.message("kelutv: " + counted(values, "value") + " to put back in " +
                               wire::shown(journal, wire::kMostOfPath) + " until the end");
            },
            std::move(tell),
            [&output, journal](const std::string& reason) {
                output.complain(wire::shown(journal, wire::kMostOfPath) + " stays: " + reason, Exit::Failure);
            }};
}

Exit judge(const Checks& checks, const JudgingOrder& order, const Output& output) {
    KnownFailures known(knownFailuresIn(order.known));
    ReportFiles files(order.reports);
    Run run;
    run.circumstances = circumstancesNow(choiceIn(order), order.order.limit);
    const auto start = std::chrono::steady_clock::now();
    TextReport report(output, checks.size(), order.tellsAll);
    const Progress progress =
        progressOn(output, order.order.journal, [&](const CheckResult& result) { report.add(known.judged(result)); });
    for (CheckResult& result : makeRun(checks, order.order, progress)) {
        run.results.push_back(known.judged(std::move(result)));
    }
    run.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    report.finish(run);
    tellUnused(known, output);
    files.write(run);
    return countOf(run.results, Verdict::failed) == 0 ? Exit::Success : Exit::Failure;
}

} // namespace kelutv::tool::compliance
