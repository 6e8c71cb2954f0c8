#include "tools/kelutv/compliance/reports/JunitReport.h"

#include "tools/kelutv/compliance/reports/ExchangeText.h"
#include "tools/kelutv/compliance/reports/Markup.h"
#include "wire/text/Join.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <numeric>

namespace kelutv::tool::compliance {

namespace {

using Results = std::vector<CheckResult>;

std::string secondsOf(double seconds) {
    char text[32];
    std::snprintf(text, sizeof(text), "%.6f", seconds);
    return text;
}

/** What the answers of the checks took. */
std::string timeOfAnswers(const Results& results) {
    std::chrono::nanoseconds time{0};
    for (const CheckResult& result : results) {
        time = std::accumulate(result.latencies.begin(), result.latencies.end(), time);
    }
    return secondsOf(std::chrono::duration<double>(time).count());
}

std::string detailsOf(const CheckResult& result) {
    std::vector<std::string> lines{result.sentence, result.reason};
    if (result.exchange) {
        const ExchangeText text = textOf(*result.exchange);
        lines.push_back("request: " + text.request);
        lines.insert(lines.end(), text.requestBytes.begin(), text.requestBytes.end());
        lines.push_back("reply: " + text.reply);
        lines.insert(lines.end(), text.replyBytes.begin(), text.replyBytes.end());
    }
    return wire::joined(lines, "\n");
}

std::string outcomeOf(const CheckResult& result) {
    switch (result.verdict) {
    case Verdict::passed:
        return "";
    case Verdict::failed:
        return textElement("failure", {{"message", result.reason}, {"type", result.family}}, detailsOf(result));
    default:
        return element("skipped", {{"message", wordsOf(result.verdict) + ": " + result.reason}}, "");
    }
}

std::string caseOf(const CheckResult& result) {
    return element("testcase",
                   {{"name", result.id},
                    {"classname", "kelutv." + result.family + '.' + result.module},
                    {"time", timeOfAnswers({result})}},
                   outcomeOf(result)) +
           '\n';
}

/** How many tests there are and what they came to. */
Attributes countsOf(const Results& results) {
    const std::size_t failed = countOf(results, Verdict::failed);
    const std::size_t skipped = results.size() - failed - countOf(results, Verdict::passed);
    return {{"tests", std::to_string(results.size())},
            {"failures", std::to_string(failed)},
            {"errors", "0"},
            {"skipped", std::to_string(skipped)}};
}

std::string propertiesOf(const Circumstances& with) {
    const Attributes properties{{"tool", with.tool},         {"catalogue", with.catalogue},
                                {"platform", with.platform}, {"service", with.service},
                                {"machine", with.machine},   {"options", wire::joined(with.options, " ")}};
    std::string markup;
    for (const auto& [name, value] : properties) {
        markup += element("property", {{"name", name}, {"value", value}}, "");
    }
    return element("properties", {}, markup) + '\n';
}

std::string suiteOf(const Run& run, const std::string& module) {
    Results results;
    std::copy_if(run.results.begin(), run.results.end(), std::back_inserter(results),
                 [&module](const CheckResult& result) { return result.module == module; });
    Attributes attributes{{"name", module}, {"timestamp", run.circumstances.started}, {"time", timeOfAnswers(results)}};
    const Attributes counts = countsOf(results);
    attributes.insert(attributes.end(), counts.begin(), counts.end());
    std::string cases = '\n' + propertiesOf(run.circumstances);
    for (const CheckResult& result : results) {
        cases += caseOf(result);
    }
    return element("testsuite", attributes, cases) + '\n';
}

} // namespace

std::string junitOf(const Run& run) {
    Attributes attributes{{"name", "kelutv compliance"}, {"time", secondsOf(run.seconds)}};
    const Attributes counts = countsOf(run.results);
    attributes.insert(attributes.end(), counts.begin(), counts.end());
    std::string suites = "\n";
    for (const std::string& module : modulesOf(run.results)) {
        suites += suiteOf(run, module);
    }
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + element("testsuites", attributes, suites) + '\n';
}

} // namespace kelutv::tool::compliance
