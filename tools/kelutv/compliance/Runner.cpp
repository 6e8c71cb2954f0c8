#include "tools/kelutv/compliance/Runner.h"

#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/checks/Visit.h"
#include "tools/kelutv/compliance/results/RunFile.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Json.h"
#include "tools/kelutv/service/ServiceLink.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>

namespace kelutv::tool::compliance {

namespace {

using tool::Finding;

constexpr char kEndedEarly[] = "not made: the service is gone or answers nothing any longer";

CheckResult resultOf(const Check& check) {
    const Subject& subject = check.subject();
    CheckResult result;
    result.id = subject.id;
    result.family = subject.family;
    result.module = subject.module;
    result.function = subject.function;
    result.sentence = subject.sentence;
    return result;
}

/** As much of the bytes as reports show. */
Bytes beginning(const Bytes& bytes) {
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(std::min(bytes.size(), kMostBytesKept))};
}

/** What the process that makes the checks says of one. */
std::string messageOf(const Outcome& outcome, const std::vector<std::chrono::nanoseconds>& latencies) {
    Json times = Json::array();
    for (const std::chrono::nanoseconds time : latencies) {
        times.add(time.count());
    }
    Json message{{"verdict", nameOf(outcome.verdict)}, {"reason", outcome.reason}, {"latencies", times}};
    if (outcome.exchange && outcome.verdict != Verdict::passed) {
        message["code"] = outcome.exchange->command;
        message["request"] = hexOf(beginning(outcome.exchange->request));
        message["status"] = outcome.exchange->status;
        message["reply"] = hexOf(beginning(outcome.exchange->reply));
    }
    return message.dump();
}

Exchange exchangeIn(const Json& message) {
    return {static_cast<std::uint32_t>(message.at("code").asInteger()), bytesOfHex(message.at("request").asText()),
            static_cast<std::int32_t>(message.at("status").asInteger()), bytesOfHex(message.at("reply").asText())};
}

void read(const std::string& text, CheckResult& result) {
    const Json message = Json::parsed(text);
    result.verdict = verdictNamed(message.at("verdict").asText()).value_or(Verdict::inconclusive);
    result.reason = message.at("reason").asText();
    for (const Json& time : message.at("latencies").entries()) {
        result.latencies.emplace_back(time.asInteger());
    }
    if (message.find("code") != nullptr) {
        result.exchange = exchangeIn(message);
    }
}

Outcome outcomeOf(const Check& check, Television& television, bool& isLost) {
    try {
        return check.run(television);
    } catch (const ToolError& error) {
        isLost = isLost || error.exit() == Exit::Link;
        return {Verdict::failed, error.what(), std::nullopt};
    }
}

void fail(Outcome& outcome, const std::string& why) {
    outcome.verdict = Verdict::failed;
    outcome.reason = why + (outcome.reason.empty() ? "" : "; " + outcome.reason);
}

/** Functions that were not answered in time; they are not asked again. */
using Silent = std::set<std::string>;

/** Makes a check; one that leaves no service behind ends all. */
Finding make(const Check& check, const Silent& silent) {
    static Television television;
    if (silent.count(check.subject().function) != 0) {
        const Outcome unasked{Verdict::inconclusive, "not made: another check of the function had no answer in time",
                              std::nullopt};
        return {tool::Verdict::Unasked, messageOf(unasked, {})};
    }
    bool isLost = false;
    Outcome outcome = outcomeOf(check, television, isLost);
    const auto latencies = television.takeLatencies();
    const bool hasDied = television.takeDeath();
    if ((television.takeLoss() || isLost) && !television.isAlive()) {
        fail(outcome, "the service is gone");
        return {tool::Verdict::Unlinked, messageOf(outcome, latencies)};
    }
    if (hasDied) {
        fail(outcome, "the service ended and is there again");
    }
    return {tool::Verdict::Good, messageOf(outcome, latencies)};
}

CheckResult resultOf(const Check& check, const Finding& finding) {
    CheckResult result = resultOf(check);
    if (finding.verdict == tool::Verdict::Bad || finding.verdict == tool::Verdict::TimeOver) {
        result.verdict = Verdict::failed;
        result.reason = finding.text;
        result.isGivenUp = true;
    } else {
        read(finding.text, result);
    }
    return result;
}

/** The checks that are made, and what the process for them is told. */
struct Visit {
    std::vector<const Check*> made;
    std::vector<tool::Check> looks;
};

Visit visitOf(const Checks& checks, double limit, const Silent& silent) {
    Visit visit;
    for (const auto& check : checks) {
        if (check->whyLeftOut().empty() && !check->startsProcesses()) {
            visit.made.push_back(check.get());
            visit.looks.push_back({check->subject().id, check->subject().module, limit + check->pause().count(),
                                   [made = check.get(), &silent] { return make(*made, silent); }});
        }
    }
    return visit;
}

/** Makes those that start processes. */
void makeHere(const Checks& checks, std::vector<CheckResult>& made, const Tell& tell) {
    for (const auto& check : checks) {
        if (check->startsProcesses() && check->whyLeftOut().empty()) {
            Television television;
            bool isLost = false;
            Outcome outcome = outcomeOf(*check, television, isLost);
            made.push_back(resultOf(*check));
            CheckResult& result = made.back();
            result.verdict = outcome.verdict;
            result.reason = std::move(outcome.reason);
            result.exchange = std::move(outcome.exchange);
            result.isGivenUp = outcome.isGivenUp;
            result.latencies = television.takeLatencies();
            tell(result);
        }
    }
}

/** @throws LinkError when there is no service */
void requireServiceElsewhere(double limit) {
    std::string complaint;
    const std::vector<tool::Check> look{{"service", "service", limit, [] {
                                             return askingFinds([] {
                                                 requireService();
                                                 return Finding{};
                                             });
                                         }}};
    makeChecks(look, {nullptr, [&complaint](const tool::Check& /*check*/, const Finding& finding) {
                          complaint = finding.verdict == tool::Verdict::Good ? "" : finding.text;
                      }});
    if (!complaint.empty()) {
        throw LinkError(complaint);
    }
}

/** In the order of the checks, with what was not made between what was. */
std::vector<CheckResult> putTogether(const Checks& checks, std::vector<CheckResult> made, const Tell& tell) {
    std::vector<CheckResult> results;
    auto next = made.begin();
    for (const auto& check : checks) {
        const std::string reason = check->whyLeftOut();
        if (reason.empty() && next != made.end()) {
            results.push_back(std::move(*next++));
            continue;
        }
        results.push_back(resultOf(*check));
        results.back().verdict = reason.empty() ? Verdict::inconclusive : Verdict::leftOut;
        results.back().reason = reason.empty() ? kEndedEarly : reason;
        tell(results.back());
    }
    return results;
}

} // namespace

std::vector<CheckResult> runChecks(const Checks& checks, double limit, const Tell& tell) {
    requireServiceElsewhere(limit);
    Silent silent;
    const Visit visit = visitOf(checks, limit, silent);
    std::vector<CheckResult> made;
    makeChecks(visit.looks, {nullptr, [&](const tool::Check& /*check*/, const Finding& finding) {
                                 made.push_back(resultOf(*visit.made[made.size()], finding));
                                 if (finding.verdict == tool::Verdict::TimeOver && !made.back().function.empty()) {
                                     silent.insert(made.back().function);
                                 }
                                 tell(made.back());
                             }});
    if (made.size() == visit.made.size()) {
        makeHere(checks, made, tell);
    }
    return putTogether(checks, std::move(made), tell);
}

bool hasEndedEarly(const std::vector<CheckResult>& results) {
    return std::any_of(results.begin(), results.end(),
                       [](const CheckResult& result) { return result.reason == kEndedEarly; });
}

} // namespace kelutv::tool::compliance
