#include "tools/kelutv/compliance/reports/LatencyPicture.h"

#include "tools/kelutv/compliance/reports/Markup.h"
#include "tools/kelutv/compliance/results/Latencies.h"
#include "tools/kelutv/text/Lists.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace kelutv::tool::compliance {

namespace {

using Latencies = std::vector<std::chrono::nanoseconds>;

constexpr std::size_t kBins = 60;
constexpr double kHeight = 30;
/** An answer that is rare shows all the same. */
constexpr double kLeastHeight = 1.5;

/** `12.8 µs`: short enough for a narrow column. */
std::string briefText(std::chrono::nanoseconds time) {
    static constexpr std::array<const char*, 4> kUnits{"ns", "\u00B5s", "ms", "s"};
    auto value = static_cast<double>(time.count());
    std::size_t unit = 0;
    while (value >= 999.5 && unit + 1 < kUnits.size()) {
        value /= 1000;
        ++unit;
    }
    char text[32];
    std::snprintf(text, sizeof(text), "%.3g %s", value, kUnits[unit]);
    return text;
}

/** Powers of ten, in nanoseconds, that enclose all times. */
class TimeScale {
public:
    explicit TimeScale(const Latencies& latencies) {
        const auto [least, greatest] = std::minmax_element(latencies.begin(), latencies.end());
        mFirst = static_cast<int>(std::floor(logarithm(*least)));
        mLast = std::max(mFirst + 1, static_cast<int>(std::ceil(logarithm(*greatest))));
    }

    /** 0 to 1. */
    double placeOf(std::chrono::nanoseconds time) const { return (logarithm(time) - mFirst) / (mLast - mFirst); }

    std::string labels() const {
        std::string markup;
        for (int power = mFirst; power <= mLast; ++power) {
            const std::chrono::nanoseconds time(std::llround(std::pow(10, power)));
            markup += textElement("span", {}, briefText(time));
        }
        return element("div", {{"class", "scale"}}, markup);
    }

private:
    static double logarithm(std::chrono::nanoseconds time) {
        return std::log10(static_cast<double>(std::max<std::int64_t>(time.count(), 1)));
    }

    int mFirst;
    int mLast;
};

std::string coordinate(double value) {
    char text[32];
    std::snprintf(text, sizeof(text), "%.2f", value);
    return text;
}

std::string barAt(std::size_t bin, std::size_t count, std::size_t most) {
    const double height = std::max(kLeastHeight, kHeight * static_cast<double>(count) / static_cast<double>(most));
    return element("rect",
                   {{"class", "bar"},
                    {"x", std::to_string(bin)},
                    {"width", "0.9"},
                    {"y", coordinate(kHeight - height)},
                    {"height", coordinate(height)}},
                   "");
}

std::string lineAt(double place, const std::string& kind) {
    const std::string x = coordinate(place * kBins);
    return element("line", {{"class", kind}, {"x1", x}, {"x2", x}, {"y1", "0"}, {"y2", coordinate(kHeight)}}, "");
}

std::string barsOf(const Latencies& latencies, const TimeScale& scale) {
    std::array<std::size_t, kBins> counts{};
    for (const std::chrono::nanoseconds time : latencies) {
        ++counts[std::min(kBins - 1, static_cast<std::size_t>(scale.placeOf(time) * kBins))];
    }
    const std::size_t most = *std::max_element(counts.begin(), counts.end());
    std::string markup;
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        markup += counts[bin] == 0 ? "" : barAt(bin, counts[bin], most);
    }
    return markup;
}

std::string pictureOf(const Latencies& latencies, const LatencySummary& summary, const TimeScale& scale) {
    const std::string words = counted(summary.count, "answer") + ", half within " + briefText(summary.p50) +
                              ", 99 of a hundred within " + briefText(summary.p99);
    return element("svg",
                   {{"class", "times"},
                    {"viewBox", "0 0 " + std::to_string(kBins) + ' ' + coordinate(kHeight)},
                    {"preserveAspectRatio", "none"},
                    {"role", "img"},
                    {"aria-label", words}},
                   barsOf(latencies, scale) + lineAt(scale.placeOf(summary.p50), "p50") +
                       lineAt(scale.placeOf(summary.p99), "p99"));
}

std::string timeCell(std::chrono::nanoseconds time) {
    return textElement("td", {{"class", "number"}}, briefText(time));
}

std::string latencyRow(const std::string& name, const Latencies& latencies, const TimeScale& scale) {
    const LatencySummary summary = summaryOf(latencies);
    return element("tr", {},
                   textElement("td", {}, name) +
                       textElement("td", {{"class", "number wide"}}, std::to_string(summary.count)) +
                       timeCell(summary.p50) + timeCell(summary.p99) + timeCell(summary.greatest) +
                       element("td", {{"class", "picture"}}, pictureOf(latencies, summary, scale))) +
           '\n';
}

std::string latencyHead(const std::string& title, const TimeScale& scale) {
    std::string cells = textElement("th", {}, title) + textElement("th", {{"class", "number wide"}}, "answers");
    for (const char* const name : {"p50", "p99", "max"}) {
        cells += textElement("th", {{"class", "number"}}, name);
    }
    return element("tr", {}, cells + element("th", {{"class", "picture"}}, scale.labels())) + '\n';
}

} // namespace

std::string latencyTable(const Run& run, std::string CheckResult::*member, const std::string& title) {
    Latencies all;
    std::vector<std::string> names;
    for (const CheckResult& result : run.results) {
        all.insert(all.end(), result.latencies.begin(), result.latencies.end());
        if (!result.latencies.empty() && std::find(names.begin(), names.end(), result.*member) == names.end()) {
            names.push_back(result.*member);
        }
    }
    if (all.empty()) {
        return "";
    }
    const TimeScale scale(all);
    std::string rows = latencyHead(title, scale);
    for (const std::string& name : names) {
        rows += latencyRow(name, latenciesWhere(run.results, member, name), scale);
    }
    return element("table", {{"class", "times"}}, rows);
}

} // namespace kelutv::tool::compliance
