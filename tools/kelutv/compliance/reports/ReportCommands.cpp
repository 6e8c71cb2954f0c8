#include "tools/kelutv/compliance/reports/ReportCommands.h"

#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/compliance/reports/ReportFiles.h"
#include "tools/kelutv/compliance/reports/RunDifference.h"
#include "tools/kelutv/compliance/reports/TextReport.h"
#include "tools/kelutv/compliance/results/RunFile.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <memory>

namespace kelutv::tool::compliance {

namespace {

struct DiffOptions {
    std::string before;
    std::string after;
    double factor = 2;
    bool failsWhenSlower = false;
};

struct ReportOptions {
    std::string file;
    ReportPaths paths;
};

std::string textOf(const std::optional<Verdict>& verdict) { return verdict ? wordsOf(*verdict) : "none"; }

Json documentOf(const std::optional<Verdict>& verdict) { return verdict ? Json(compliance::nameOf(*verdict)) : Json(); }

Style styleOf(Change change) {
    return change == Change::newlyFailed ? Style::Bad : change == Change::newlyPassed ? Style::Good : Style::Number;
}

/** `newly-failed`. */
std::string nameOf(Change change) {
    std::string name = wordsOf(change);
    std::replace(name.begin(), name.end(), ' ', '-');
    return name;
}

void tellChange(const ChangedCheck& check, const Output& output) {
    output.line(output.styled(styleOf(check.change), wordsOf(check.change)) + "  " +
                output.styled(Style::Name, check.id) + ": " + textOf(check.before) + " -> " + textOf(check.after) +
                (check.reason.empty() ? "" : ": " + wire::shown(check.reason, wire::kMostOfPath)));
    output.document({{"id", check.id},
                     {"change", nameOf(check.change)},
                     {"before", documentOf(check.before)},
                     {"after", documentOf(check.after)},
                     {"reason", check.reason}});
}

Json documentOf(const LatencySummary& summary) {
    return {{"count", summary.count},
            {"p50", summary.p50.count()},
            {"p99", summary.p99.count()},
            {"max", summary.greatest.count()}};
}

void tellLatency(const ChangedLatency& latency, const Output& output) {
    const bool isSlower = latency.isSlower();
    output.line(output.styled(isSlower ? Style::Bad : Style::Good, isSlower ? "slower" : "quicker") + "  " +
                output.styled(Style::Name, latency.family + '.' + latency.module) + ": p50 " +
                millisecondsText(latency.before.p50) + " -> " + millisecondsText(latency.after.p50) + ", p99 " +
                millisecondsText(latency.before.p99) + " -> " + millisecondsText(latency.after.p99));
    output.document({{"family", latency.family},
                     {"module", latency.module},
                     {"before", documentOf(latency.before)},
                     {"after", documentOf(latency.after)}});
}

std::size_t countOf(const RunComparison& comparison, Change change) {
    return static_cast<std::size_t>(
        std::count_if(comparison.checks.begin(), comparison.checks.end(),
                      [change](const ChangedCheck& each) { return each.change == change; }));
}

void tellSums(const RunComparison& comparison, const Output& output) {
    std::vector<std::string> parts;
    Json sums = Json::object();
    for (const Change change :
         {Change::newlyFailed, Change::newlyPassed, Change::changed, Change::added, Change::gone}) {
        const std::size_t count = countOf(comparison, change);
        parts.push_back(std::to_string(count) + ' ' + wordsOf(change));
        sums[nameOf(change)] = count;
    }
    output.message("kelutv: " + joined(parts, ", "));
    output.document({{"changes", sums}, {"latencies", comparison.latencies.size()}});
}

Exit showDifference(const DiffOptions& options, const Output& output) {
    const Run before = runIn(options.before);
    const RunComparison comparison = compare(before, runIn(options.after), options.factor);
    for (const ChangedCheck& check : comparison.checks) {
        tellChange(check, output);
    }
    for (const ChangedLatency& latency : comparison.latencies) {
        tellLatency(latency, output);
    }
    tellSums(comparison, output);
    const bool isSlower = std::any_of(comparison.latencies.begin(), comparison.latencies.end(),
                                      [](const ChangedLatency& each) { return each.isSlower(); });
    return countOf(comparison, Change::newlyFailed) != 0 || (options.failsWhenSlower && isSlower) ? Exit::Failure
                                                                                                  : Exit::Success;
}

void showReport(const ReportOptions& options, const Output& output) {
    ReportFiles files(options.paths);
    const Run run = runIn(options.file);
    TextReport report(output, run.results.size());
    for (const CheckResult& result : run.results) {
        report.add(result);
    }
    report.finish(run);
    files.write(run);
}

void addDiff(const Subcommand& compliance, Context& context, const std::function<void()>& begin) {
    const Subcommand command(
        compliance, "diff",
        "Show what two compliance runs do not have alike\n"
        "Compares reports by the identifiers of their checks: what newly failed, newly passed,\n"
        "has another verdict otherwise, is new, or gone; and answers that take longer or shorter.\n"
        "Ends with 1 when something newly failed.\n\n"
        "Examples:\n"
        "kelutv compliance diff yesterday.json today.json\n"
        "kelutv compliance diff yesterday.json today.json --factor 1.5 --slower");
    const auto options = std::make_shared<DiffOptions>();
    command.required("A", options->before, "The report of the earlier run, or - for standard input");
    command.required("B", options->after, "That of the later one");
    command.option("--factor", options->factor, 1, 1000, "NUMBER",
                   "By how much the median of a module's answers must have changed to be told; else 2");
    command.flag("--slower", options->failsWhenSlower, "End with 1 when answers have become slower by that, too");
    command.action([options, &context, begin] {
        begin();
        context.exit = showDifference(*options, context.output);
    });
}

void addReport(const Subcommand& compliance, Context& context, const std::function<void()>& begin) {
    const Subcommand command(compliance, "report",
                             "Show the report of a compliance run, and make others of it\n"
                             "Needs no service.\n\n"
                             "Examples:\n"
                             "kelutv compliance report today.json\n"
                             "kelutv compliance report today.json --html today.html --junit today.xml");
    const auto options = std::make_shared<ReportOptions>();
    command.required("FILE", options->file, "The report, as JSON, or - for standard input");
    addReportOptions(command, options->paths);
    command.action([options, &context, begin] {
        begin();
        showReport(*options, context.output);
    });
}

} // namespace

void addReportCommands(const Subcommand& compliance, Context& context, const std::function<void()>& begin) {
    addDiff(compliance, context, begin);
    addReport(compliance, context, begin);
}

} // namespace kelutv::tool::compliance
