#include "tools/kelutv/compliance/load/Crowd.h"

#include "tools/kelutv/compliance/clients/Client.h"
#include "tools/kelutv/compliance/clients/KnownAnswers.h"
#include "tools/kelutv/compliance/framework/Television.h"
#include "tools/kelutv/output/Errors.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <thread>

namespace kelutv::tool::compliance {

namespace {

constexpr std::size_t kCallsOfAll = 1000;
constexpr std::size_t kFewestCalls = 30;
constexpr process::Seconds kTimeOfCrowd{30};

using Exchanges = std::vector<Exchange>;

/** What one thread got. */
struct Calls {
    std::vector<std::chrono::nanoseconds> latencies;
    Exchanges wrong;
};

/** Each caller begins with another request, so that neighbours ask different things. */
void call(const Exchanges& known, std::size_t caller, std::size_t count, Calls& calls) {
    Television television;
    for (std::size_t i = 0; i < count; ++i) {
        const Exchange& wanted = known[(caller + i) % known.size()];
        Exchange answer = television.ask(wanted.request);
        if (!isSameAnswer(wanted, answer)) {
            calls.wrong.push_back(std::move(answer));
        }
    }
    calls.latencies = television.takeLatencies();
}

/** A value that has changed meanwhile is no wrong answer. */
void dropWhatHasChanged(Calls& calls) {
    Exchanges wrong;
    for (const Exchange& answer : calls.wrong) {
        if (answer.status != 0 || !isSameAnswer(askAgain(answer), answer)) {
            wrong.push_back(answer);
        }
    }
    calls.wrong = std::move(wrong);
}

Json documentOf(const std::vector<Calls>& all) {
    Json latencies = Json::array();
    std::size_t wrong = 0;
    Json document = Json::object();
    for (const Calls& calls : all) {
        for (const std::chrono::nanoseconds latency : calls.latencies) {
            latencies.add(latency.count());
        }
        if (wrong == 0 && !calls.wrong.empty()) {
            document["request"] = hexOf(calls.wrong.front().request);
            document["status"] = calls.wrong.front().status;
            document["reply"] = hexOf(calls.wrong.front().reply);
        }
        wrong += calls.wrong.size();
    }
    document["wrong"] = wrong;
    document["latencies"] = latencies;
    return document;
}

/** One process of the crowd: says when it is connected, and calls when it is told to. */
void takePart(const ClientLine& line, const Exchanges& known, std::size_t first, const CrowdSize& size) {
    askAgain(known.front());
    line.say({{"ready", true}});
    line.hear();
    const std::size_t count = std::max(kFewestCalls, kCallsOfAll / size.callers());
    std::vector<Calls> all(size.threads);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < size.threads; ++i) {
        threads.emplace_back([&, i] { call(known, first + i, count, all[i]); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::for_each(all.begin(), all.end(), dropWhatHasChanged);
    line.say(documentOf(all));
}

void add(CrowdReport& report, const Json& part) {
    for (const Json& latency : part.at("latencies").entries()) {
        report.latencies.emplace_back(latency.asInteger());
    }
    report.calls = report.latencies.size();
    report.wrong += static_cast<std::size_t>(part.at("wrong").asInteger());
    if (!report.firstWrong && part.find("request") != nullptr) {
        report.firstWrong =
            Exchange{kRequestCode, bytesOfHex(part.at("request").asText()),
                     static_cast<std::int32_t>(part.at("status").asInteger()), bytesOfHex(part.at("reply").asText())};
    }
}

/** What a client says of what was wanted; a complaint when it says nothing, or that it cannot. */
std::optional<Json> heard(Client& client, process::Deadline deadline, CrowdReport& report) {
    std::optional<Json> message = client.hear(deadline);
    const Json* const error = message ? message->find("error") : nullptr;
    if (message && error == nullptr) {
        return message;
    }
    report.complaint = error != nullptr ? error->asText() : "a process was not answered in time, or ended";
    return std::nullopt;
}

} // namespace

CrowdReport callAtOnce(const CrowdSize& size) {
    const Exchanges& known = knownAnswers();
    if (known.empty()) {
        throw ToolError(Exit::Service, "nothing that only reads is answered twice in the same way");
    }
    const process::Deadline deadline = process::deadlineIn(kTimeOfCrowd);
    CrowdReport report;
    std::deque<Client> clients;
    for (std::size_t i = 0; i < size.processes; ++i) {
        clients.emplace_back([&, i](const ClientLine& line) { takePart(line, known, i * size.threads, size); });
    }
    for (Client& client : clients) {
        if (!heard(client, deadline, report)) {
            return report;
        }
    }
    for (const Client& client : clients) {
        client.say({{"go", true}});
    }
    for (Client& client : clients) {
        if (const std::optional<Json> part = heard(client, deadline, report)) {
            add(report, *part);
        }
    }
    return report;
}

} // namespace kelutv::tool::compliance
