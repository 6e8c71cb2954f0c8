#include "tools/kelutv/compliance/results/RunFile.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/JsonMembers.h"
#include "tools/kelutv/text/Hex.h"
#include "tools/kelutv/text/InputFile.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Shown.h"

#include <limits>
#include <set>

namespace kelutv::tool::compliance {

namespace {

constexpr char kFormat[] = "kelutv compliance 1";

/** The bytes, and their number where they are too many to keep all. */
void addBytes(Json& document, const std::string& name, const Bytes& bytes) {
    if (bytes.size() <= kMostBytesKept) {
        document[name] = hexOf(bytes);
        return;
    }
    document[name] = hexOf({bytes.begin(), bytes.begin() + kMostBytesKept});
    document[name + "Bytes"] = bytes.size();
}

Json documentOf(const Exchange& exchange) {
    Json document{{"command", exchange.command}};
    addBytes(document, "request", exchange.request);
    document["status"] = exchange.status;
    addBytes(document, "reply", exchange.reply);
    return document;
}

Json documentOf(const std::vector<std::chrono::nanoseconds>& latencies) {
    Json list = Json::array();
    for (const std::chrono::nanoseconds latency : latencies) {
        list.add(latency.count());
    }
    return list;
}

Json headOf(const Run& run) {
    const Circumstances& with = run.circumstances;
    Json head{{"format", kFormat},       {"started", with.started},     {"seconds", run.seconds},
              {"tool", with.tool},       {"catalogue", with.catalogue}, {"platform", with.platform},
              {"service", with.service}, {"machine", with.machine},     {"options", with.options}};
    Json counts = Json::object();
    for (const Verdict verdict : allVerdicts()) {
        counts[nameOf(verdict)] = countOf(run.results, verdict);
    }
    head["checks"] = run.results.size();
    head["verdicts"] = counts;
    return head;
}

std::vector<std::string> textsOf(const JsonMembers& members, const std::string& name) {
    std::vector<std::string> texts;
    for (const Json& entry : members.list(name).entries()) {
        members.require(entry.isText(), '\'' + name + "' holds what is no text");
        texts.push_back(entry.asText());
    }
    return texts;
}

template <typename Number> Number integerOf(const JsonMembers& members, const std::string& name) {
    const std::int64_t value = members.integer(name);
    members.require(value >= std::numeric_limits<Number>::min() && value <= std::numeric_limits<Number>::max(),
                    '\'' + name + "' is out of range");
    return static_cast<Number>(value);
}

Bytes bytesIn(const JsonMembers& members, const std::string& name) {
    const std::string& digits = members.text(name);
    try {
        return bytesOfHex(digits);
    } catch (const UsageError& error) {
        throw UsageError(members.place() + ": '" + name + "': " + error.what());
    }
}

Exchange exchangeOf(const Json& document, const std::string& place) {
    const JsonMembers members(document, place);
    return {integerOf<std::uint32_t>(members, "command"), bytesIn(members, "request"),
            integerOf<std::int32_t>(members, "status"), bytesIn(members, "reply")};
}

Verdict verdictOf(const JsonMembers& members) {
    const std::string& name = members.text("verdict");
    const std::optional<Verdict> verdict = verdictNamed(name);
    if (!verdict) {
        std::vector<std::string> allowed;
        for (const Verdict each : allVerdicts()) {
            allowed.push_back(nameOf(each));
        }
        throw UsageError(members.place() + ": the verdict is '" + wire::shown(name) + "', not one of " +
                         joined(allowed, ", "));
    }
    return *verdict;
}

std::vector<std::chrono::nanoseconds> latenciesOf(const JsonMembers& members) {
    std::vector<std::chrono::nanoseconds> latencies;
    for (const Json& entry : members.list("latencies").entries()) {
        members.require(entry.isInteger() && entry.asInteger() >= 0, "'latencies' holds what is no time");
        latencies.emplace_back(entry.asInteger());
    }
    return latencies;
}

CheckResult resultOf(const Json& entry, const std::string& place) {
    const JsonMembers members(entry, place);
    CheckResult result{
        members.text("id"),       members.text("family"), members.text("module"), members.text("function"),
        members.text("sentence"), verdictOf(members),     members.text("reason"), std::nullopt,
        latenciesOf(members)};
    if (const Json* const exchange = members.optional("exchange"); exchange != nullptr && !exchange->isNull()) {
        result.exchange = exchangeOf(*exchange, place + ", exchange");
    }
    return result;
}

Circumstances circumstancesOf(const JsonMembers& members) {
    return {members.text("started"), members.text("tool"),    members.text("catalogue"),  members.text("platform"),
            members.text("service"), members.text("machine"), textsOf(members, "options")};
}

} // namespace

Json documentOf(const CheckResult& result) {
    Json document{{"id", result.id},
                  {"family", result.family},
                  {"module", result.module},
                  {"function", result.function},
                  {"sentence", result.sentence},
                  {"verdict", nameOf(result.verdict)},
                  {"reason", result.reason},
                  {"latencies", documentOf(result.latencies)}};
    document["exchange"] = result.exchange && result.verdict != Verdict::passed ? documentOf(*result.exchange) : Json();
    return document;
}

std::string textOf(const Run& run) {
    const Json head = headOf(run);
    std::string text = "{";
    for (const auto& [name, value] : head.members()) {
        text += "\n  " + Json(name).dump() + ": " + value.dump() + ',';
    }
    text += "\n  \"results\": [";
    const char* separator = "\n    ";
    for (const CheckResult& result : run.results) {
        text += separator + documentOf(result).dump();
        separator = ",\n    ";
    }
    return text + (run.results.empty() ? "]\n}\n" : "\n  ]\n}\n");
}

Run runOf(const std::string& text, const std::string& file) {
    const Json document = jsonOfFile(text, file);
    const JsonMembers members(document, file);
    const std::string& format = members.text("format");
    members.require(format == kFormat, "the format is '" + wire::shown(format) + "', not '" + kFormat + "'");
    Run run{circumstancesOf(members), members.number("seconds"), {}};
    std::set<std::string> identifiers;
    for (const Json& entry : members.list("results").entries()) {
        run.results.push_back(resultOf(entry, file + ": results[" + std::to_string(run.results.size()) + ']'));
        const std::string& id = run.results.back().id;
        members.require(identifiers.insert(id).second, "results has " + wire::shown(id) + " twice");
    }
    members.require(members.number("checks") == static_cast<double>(run.results.size()),
                    "'checks' is not the number of results: the file is not whole");
    return run;
}

Run runIn(const std::string& path) {
    const Bytes bytes = bytesOfInput(path);
    return runOf({bytes.begin(), bytes.end()}, path == "-" ? "standard input" : wire::shown(path, wire::kMostOfPath));
}

} // namespace kelutv::tool::compliance
