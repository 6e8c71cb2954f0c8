#include "tools/kelutv/compliance/refusal/ServiceChecks.h"

#include "tools/kelutv/compliance/framework/Answer.h"
#include "tools/kelutv/compliance/framework/Samples.h"
#include "tools/kelutv/compliance/refusal/Malformed.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "wire/Interface.h"
#include "wire/codec/ByteReader.h"

#include <functional>
#include <limits>

namespace kelutv::tool::compliance {

namespace {

constexpr char kFamily[] = "refusal";
constexpr char kModule[] = "service";

/** Any request that only reads. */
Bytes anyRequest() { return requestsFor(sampleOf(functionNamed("linux_tv_Audio_getVolume"))).front(); }

Subject subjectOf(const std::string& name, const std::string& sentence) {
    return {std::string(kFamily) + '.' + kModule + '.' + name, kFamily, kModule, "", sentence};
}

class ServiceCheck : public Check {
public:
    using Ask = std::function<Exchange(Television& television)>;

    ServiceCheck(Subject subject, Ask ask) : Check(std::move(subject)), mAsk(std::move(ask)) {}

    Outcome run(Television& television) const override {
        const Exchange exchange = mAsk(television);
        Outcome outcome = outcomeOf(exchange, false, Verdict::failed);
        if (outcome.verdict != Verdict::passed) {
            outcome.reason = "it " + outcome.reason;
            outcome.exchange = exchange;
        }
        return outcome;
    }

private:
    Ask mAsk;
};

void addUnknownCommands(Checks& checks) {
    constexpr std::int32_t kGreatest = std::numeric_limits<std::int32_t>::max();
    // Far from all that a television might have and the catalogue lacks.
    for (const std::int32_t number : {-1, std::numeric_limits<std::int32_t>::min(), kGreatest, kGreatest - 0xFFFF}) {
        checks.push_back(std::make_unique<ServiceCheck>(
            subjectOf("unknownCommand[" + std::to_string(number) + ']',
                      "A command that does not exist is refused: there is nothing to answer."),
            [number](Television& television) { return television.ask(withCommand(anyRequest(), number)); }));
    }
}

void addUnknownCodes(Checks& checks) {
    for (const std::uint32_t code : {kRequestCode + 1, 0xFFFFFFU}) {
        checks.push_back(std::make_unique<ServiceCheck>(
            subjectOf("unknownCode[" + std::to_string(code) + ']',
                      "A transaction of another code than that of requests is refused."),
            [code](Television& television) { return television.ask(anyRequest(), code); }));
    }
}

} // namespace

Outcome outcomeOf(const Exchange& exchange, bool isValue, Verdict whenTaken) {
    std::int32_t result = 0;
    wire::ByteReader reply(exchange.reply.data(), exchange.reply.size());
    if (exchange.status != 0) {
        return {};
    }
    if (!reply.read(result)) {
        return {Verdict::failed, "gets a reply without a result word, which clients read as success", std::nullopt};
    }
    if (isValue) {
        return result < 0 ? Outcome{}
                          : Outcome{Verdict::inconclusive,
                                    "gets " + std::to_string(result) + ", which may be a value as well as a refusal",
                                    std::nullopt};
    }
    return result != 0 ? Outcome{} : Outcome{whenTaken, "is answered as if nothing were wrong with it", std::nullopt};
}

void addServiceChecks(Checks& checks) {
    addUnknownCommands(checks);
    addUnknownCodes(checks);
}

} // namespace kelutv::tool::compliance
