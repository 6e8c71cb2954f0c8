#include "tools/kelutv/compliance/clients/KnownAnswers.h"

#include "tools/kelutv/compliance/clients/Client.h"
#include "tools/kelutv/compliance/framework/Answer.h"
#include "tools/kelutv/compliance/framework/Television.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/Readings.h"

#include <set>

namespace kelutv::tool::compliance {

namespace {

constexpr std::size_t kMostKnown = 64;
constexpr process::Seconds kTimeToLearn{20};

using Exchanges = std::vector<Exchange>;

/** One request of each function that only reads. */
Exchanges askEach(Television& television) {
    Exchanges exchanges;
    std::set<const wire::Function*> asked;
    for (const Reading& reading : allReadings().asked) {
        if (!asked.insert(reading.function).second) {
            continue;
        }
        const std::vector<Bytes> requests = requestsFor(reading);
        if (requests.size() == 1) {
            exchanges.push_back(television.ask(requests.front()));
        }
    }
    return exchanges;
}

/** What was answered, is answered in the same way now, and is no other's answer. */
void learn(const ClientLine& line) {
    Television television;
    std::set<Bytes> replies;
    for (const Exchange& known : askEach(television)) {
        if (known.status == 0 && replies.size() < kMostKnown && replies.count(known.reply) == 0 &&
            isSameAnswer(known, television.ask(known.request))) {
            replies.insert(known.reply);
            line.say({{"request", hexOf(known.request)}, {"reply", hexOf(known.reply)}});
        }
    }
    line.say({{"end", true}});
}

Exchanges learned() {
    Client client(learn);
    Exchanges exchanges;
    const process::Deadline deadline = process::deadlineIn(kTimeToLearn);
    for (;;) {
        const std::optional<Json> message = client.hear(deadline);
        if (!message) {
            throw ToolError(Exit::TimeOver, "what only reads was not answered in time");
        }
        if (const Json* const error = message->find("error")) {
            throw LinkError(error->asText());
        }
        if (message->find("end") != nullptr) {
            return exchanges;
        }
        exchanges.push_back(
            {kRequestCode, bytesOfHex(message->at("request").asText()), 0, bytesOfHex(message->at("reply").asText())});
    }
}

} // namespace

const std::vector<Exchange>& knownAnswers() {
    static const Exchanges exchanges = learned();
    return exchanges;
}

Exchange askAgain(const Exchange& known) {
    Television television;
    return television.ask(known.request);
}

bool isSameAnswer(const Exchange& known, const Exchange& answer) {
    return answer.status == known.status && answer.reply == known.reply;
}

} // namespace kelutv::tool::compliance
