#include "tools/kelutv/compliance/life/Listening.h"

#include "tools/kelutv/compliance/events/EventChecks.h"
#include "tools/kelutv/output/Errors.h"

namespace kelutv::tool::compliance {

namespace {

constexpr process::Seconds kTimeOfListener{10};

} // namespace

void requireListening(Client& client) {
    if (const auto message = client.hear(process::deadlineIn(kTimeOfListener));
        !message || message->find("ready") == nullptr) {
        throw ToolError(Exit::Service, "a client cannot listen to events");
    }
}

Outcome changeAndListen(const Terms& terms) {
    Client client([&terms](const ClientLine& line) {
        Television television;
        const Outcome outcome = checkOfOneEvent(terms)->run(television);
        line.say({{"verdict", nameOf(outcome.verdict)}, {"reason", outcome.reason}});
    });
    const std::optional<Json> message = client.hear(process::deadlineIn(kTimeOfListener));
    if (!message) {
        return {Verdict::failed, "a client that changes something was not answered in time, or ended", std::nullopt,
                true};
    }
    if (const Json* const error = message->find("error")) {
        return {Verdict::failed, error->asText(), std::nullopt};
    }
    return {verdictNamed(message->at("verdict").asText()).value_or(Verdict::inconclusive),
            message->at("reason").asText(), std::nullopt};
}

} // namespace kelutv::tool::compliance
