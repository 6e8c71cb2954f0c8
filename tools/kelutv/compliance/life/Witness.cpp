#include "tools/kelutv/compliance/life/Witness.h"

#include "tools/kelutv/compliance/clients/KnownAnswers.h"
#include "tools/kelutv/output/Errors.h"

namespace kelutv::tool::compliance {

namespace {

constexpr process::Seconds kTimeOfAnswer{10};

/** One of the answers; what asks for it is the same for all. */
const Exchange& oneAnswer() {
    if (knownAnswers().empty()) {
        throw ToolError(Exit::Service, "nothing that only reads is answered twice in the same way");
    }
    return knownAnswers().front();
}

void testify(const ClientLine& line, const Exchange& known) {
    askAgain(known);
    line.say({{"ready", true}});
    line.hear();
    const Exchange answer = askAgain(known);
    line.say({{"status", answer.status}, {"same", isSameAnswer(known, answer)}});
}

void callForEver(const ClientLine& line, const std::vector<Exchange>& known) {
    askAgain(known.front());
    line.say({{"ready", true}});
    for (std::size_t i = 0;; ++i) {
        askAgain(known[i % known.size()]);
    }
}

/** @throws ToolError when the client does not say that it is ready */
void awaitReady(Client& client) {
    const std::optional<Json> message = client.hear(process::deadlineIn(kTimeOfAnswer));
    if (!message || message->find("ready") == nullptr) {
        throw ToolError(Exit::TimeOver,
                        !message ? "a client was not answered in time, or ended" : message->at("error").asText());
    }
}

} // namespace

void requireKnownAnswers() { oneAnswer(); }

Witness::Witness() : mClient([&known = oneAnswer()](const ClientLine& line) { testify(line, known); }) {
    awaitReady(mClient);
}

std::string Witness::complaint() {
    mClient.say({{"ask", true}});
    const std::optional<Json> message = mClient.hear(process::deadlineIn(kTimeOfAnswer));
    if (!message) {
        return "a client that was there before is not answered any more";
    }
    if (const Json* const error = message->find("error")) {
        return error->asText();
    }
    if (message->at("status").asInteger() != 0) {
        return "the service is not the one that it was: it has ended";
    }
    return message->at("same").asBoolean() ? "" : "a client that was there before gets another answer";
}

Caller::Caller() : mClient([&known = knownAnswers()](const ClientLine& line) { callForEver(line, known); }) {
    awaitReady(mClient);
}

} // namespace kelutv::tool::compliance
