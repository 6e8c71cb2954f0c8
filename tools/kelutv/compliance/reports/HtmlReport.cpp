#include "tools/kelutv/compliance/reports/HtmlReport.h"

#include "tools/kelutv/compliance/reports/ExchangeText.h"
#include "tools/kelutv/compliance/reports/HtmlStyle.h"
#include "tools/kelutv/compliance/reports/LatencyPicture.h"
#include "tools/kelutv/compliance/reports/Markup.h"
#include "tools/kelutv/text/Lists.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace kelutv::tool::compliance {

namespace {

/** The number of results of each verdict. */
using Counts = std::map<Verdict, std::size_t>;

Counts countsIn(const std::vector<CheckResult>& results, const std::string& module = "") {
    Counts counts;
    for (const CheckResult& result : results) {
        counts[result.verdict] += module.empty() || result.module == module ? 1 : 0;
    }
    return counts;
}

std::string heading(const std::string& text) { return textElement("h2", {}, text) + '\n'; }

std::string circumstancesOf(const Run& run) {
    const Circumstances& with = run.circumstances;
    char seconds[32];
    std::snprintf(seconds, sizeof(seconds), "%.1f s", run.seconds);
    const Attributes rows{{"begun", with.started},       {"took", seconds},
                          {"service", with.service},     {"platform", with.platform},
                          {"machine", with.machine},     {"tool", with.tool},
                          {"catalogue", with.catalogue}, {"options", joined(with.options, " ")}};
    std::string markup;
    for (const auto& [name, value] : rows) {
        markup += textElement("dt", {}, name) + textElement("dd", {}, value.empty() ? "none" : value) + '\n';
    }
    return element("dl", {{"class", "with"}}, markup) + '\n';
}

std::string verdictTiles(const Run& run) {
    Counts counts = countsIn(run.results);
    std::string tiles;
    for (const Verdict verdict : allVerdicts()) {
        tiles += element("li", {{"class", nameOf(verdict)}},
                         textElement("b", {}, std::to_string(counts[verdict])) + escaped(wordsOf(verdict)));
    }
    return element("ul", {{"class", "counts"}}, tiles) + '\n';
}

/** One bar whose parts are as long as their share of the checks. */
std::string sharesOf(Counts counts, std::size_t all) {
    std::string parts;
    std::string words;
    std::size_t at = 0;
    for (const Verdict verdict : allVerdicts()) {
        if (const std::size_t count = counts[verdict]; count != 0) {
            parts += element("rect",
                             {{"class", nameOf(verdict)},
                              {"x", std::to_string(at)},
                              {"width", std::to_string(count)},
                              {"height", "1"}},
                             "");
            words += (words.empty() ? "" : ", ") + std::to_string(count) + ' ' + wordsOf(verdict);
            at += count;
        }
    }
    return element("svg",
                   {{"class", "share"},
                    {"viewBox", "0 0 " + std::to_string(all) + " 1"},
                    {"preserveAspectRatio", "none"},
                    {"role", "img"},
                    {"aria-label", words}},
                   parts);
}

std::string moduleRow(const Run& run, const std::string& module) {
    Counts counts = countsIn(run.results, module);
    std::size_t all = 0;
    std::string cells = textElement("td", {}, module);
    for (const Verdict verdict : allVerdicts()) {
        const bool isShownAlways = verdict == Verdict::passed || verdict == Verdict::failed;
        cells +=
            textElement("td", {{"class", isShownAlways ? "number" : "number wide"}}, std::to_string(counts[verdict]));
        all += counts[verdict];
    }
    return element("tr", {}, cells + element("td", {{"class", "picture"}}, sharesOf(counts, all))) + '\n';
}

std::string moduleTable(const Run& run) {
    std::string cells = textElement("th", {}, "module");
    for (const Verdict verdict : allVerdicts()) {
        const bool isShownAlways = verdict == Verdict::passed || verdict == Verdict::failed;
        cells += textElement("th", {{"class", isShownAlways ? "number" : "number wide"}}, wordsOf(verdict));
    }
    std::string rows = element("tr", {}, cells + textElement("th", {{"class", "picture"}}, "share")) + '\n';
    for (const std::string& module : modulesOf(run.results)) {
        rows += moduleRow(run, module);
    }
    return element("table", {}, rows) + '\n';
}

std::string exchangeMarkup(const Exchange& exchange) {
    const ExchangeText text = textOf(exchange);
    std::string markup = element("p", {}, "Request: " + textElement("code", {}, text.request)) +
                         textElement("pre", {}, joined(text.requestBytes, "\n")) +
                         element("p", {}, "Reply: " + textElement("code", {}, text.reply));
    if (!text.replyBytes.empty()) {
        markup += textElement("pre", {}, joined(text.replyBytes, "\n"));
    }
    return markup;
}

std::string failureMarkup(const CheckResult& result) {
    return element("details", {{"class", nameOf(result.verdict)}, {"id", result.id}},
                   element("summary", {}, textElement("code", {}, result.id) + textElement("p", {}, result.reason)) +
                       textElement("p", {{"class", "dim"}}, result.sentence) +
                       (result.exchange ? exchangeMarkup(*result.exchange)
                                        : textElement("p", {{"class", "dim"}}, "Nothing was exchanged."))) +
           '\n';
}

std::string failuresOf(const Run& run) {
    std::string markup;
    for (const CheckResult& result : run.results) {
        markup += result.verdict == Verdict::failed ? failureMarkup(result) : "";
    }
    return markup.empty() ? textElement("p", {}, "Nothing failed.") + '\n' : markup;
}

/** What has this verdict, by the reason, each reason once. */
std::string reasonsOf(const Run& run, Verdict verdict) {
    std::vector<std::pair<std::string, std::string>> entries;
    std::map<std::string, std::size_t> places;
    std::map<std::string, std::size_t> counts;
    for (const CheckResult& result : run.results) {
        if (result.verdict == verdict) {
            if (places.emplace(result.reason, entries.size()).second) {
                entries.emplace_back(result.reason, "");
            }
            entries[places[result.reason]].second += element("li", {}, textElement("code", {}, result.id)) + '\n';
            ++counts[result.reason];
        }
    }
    std::string markup;
    for (const auto& [reason, list] : entries) {
        markup += element("details", {{"class", nameOf(verdict)}},
                          textElement("summary", {}, reason + " (" + counted(counts[reason], "check") + ')') +
                              element("ul", {}, list)) +
                  '\n';
    }
    return markup;
}

std::string otherVerdicts(const Run& run) {
    std::string markup;
    for (const Verdict verdict :
         {Verdict::expectedFailure, Verdict::inconclusive, Verdict::refused, Verdict::leftOut}) {
        std::string words = wordsOf(verdict);
        if (const std::string reasons = reasonsOf(run, verdict); !reasons.empty()) {
            words.front() = static_cast<char>(words.front() - 'a' + 'A');
            markup += heading(words) + reasons;
        }
    }
    return markup;
}

std::string latencyPictures(const Run& run) {
    const std::string byModule = latencyTable(run, &CheckResult::module, "module");
    if (byModule.empty()) {
        return "";
    }
    return heading("How long answers took") +
           textElement("p", {{"class", "dim"}},
                       "How many answers took how long, each row to a scale of its own upwards; the solid line is p50, "
                       "the dashed one p99.") +
           byModule + '\n' + latencyTable(run, &CheckResult::family, "family") + '\n';
}

std::string titleOf(const Run& run) {
    const std::size_t failed = countOf(run.results, Verdict::failed);
    return (failed == 0 ? std::string("Nothing failed") : counted(failed, "check") + " failed") + " of " +
           std::to_string(run.results.size());
}

} // namespace

std::string htmlOf(const Run& run) {
    const std::string head = "<meta charset=\"utf-8\">\n<meta name=\"viewport\" content=\"width=device-width, "
                             "initial-scale=1\">\n" +
                             textElement("title", {}, "Compliance: " + titleOf(run)) + '\n' +
                             element("style", {}, kHtmlStyle) + '\n';
    const std::string body = textElement("h1", {}, titleOf(run)) +
                             textElement("p", {{"class", "dim"}}, "A compliance run of a TV base service") +
                             verdictTiles(run) + circumstancesOf(run) + heading("By module") + moduleTable(run) +
                             heading("Failed") + failuresOf(run) + latencyPictures(run) + otherVerdicts(run);
    return "<!DOCTYPE html>\n" +
           element("html", {{"lang", "en"}},
                   '\n' + element("head", {}, '\n' + head) + '\n' + element("body", {}, '\n' + body) + '\n') +
           '\n';
}

} // namespace kelutv::tool::compliance
