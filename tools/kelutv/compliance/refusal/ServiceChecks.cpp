#include "tools/kelutv/compliance/refusal/ServiceChecks.h"

#include "tools/kelutv/compliance/framework/Answer.h"
#include "tools/kelutv/compliance/framework/Samples.h"
#include "tools/kelutv/compliance/refusal/Malformed.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/codec/ByteReader.h"

#include <utility>

namespace kelutv::tool::compliance {

namespace {

constexpr char kModule[] = "service";

/** Any request that only reads. */
Bytes anyRequest() { return requestsFor(sampleOf(functionNamed("linux_tv_Audio_getVolume"))).front(); }

Subject subjectOf(const std::string& name, const std::string& sentence) {
    return {std::string(kRefusalFamily) + '.' + kModule + '.' + name, kRefusalFamily, kModule, "", sentence};
}

class ServiceCheck : public Check {
public:
    using Make = MalformedRequests (*)(const Bytes& request);

    ServiceCheck(Subject subject, Make make) : Check(std::move(subject)), mMake(make) {}

    Outcome run(Television& television) const override {
        for (const Malformed& malformed : mMake(anyRequest())) {
            const Exchange exchange = television.ask(malformed.request, malformed.code);
            Outcome outcome = outcomeOf(exchange, false, Verdict::failed);
            if (outcome.verdict != Verdict::passed) {
                outcome.reason = "a request that " + malformed.what + ' ' + outcome.reason;
                outcome.exchange = exchange;
                return outcome;
            }
        }
        return {};
    }

private:
    Make mMake;
};

void add(Checks& checks, const std::string& name, const std::string& sentence,
         MalformedRequests (*make)(const Bytes&)) {
    checks.push_back(std::make_unique<ServiceCheck>(subjectOf(name, sentence), make));
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
    if (result != 0 && reply.available() != 0) {
        return {Verdict::failed, "is refused with " + counted(reply.available(), "byte") + " behind the result word",
                std::nullopt};
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
    add(checks, "truncatedToken", "A request that is cut off at any byte of its token is refused.", truncatedInToken);
    add(checks, "unknownCommand", "A command that does not exist is refused: there is nothing to answer.",
        withUnknownCommands);
    add(checks, "unknownCode", "A transaction of another code than that of requests is refused.", withUnknownCodes);
}

} // namespace kelutv::tool::compliance
