#include "tools/kelutv/compliance/framework/Setting.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/compliance/framework/Answer.h"
#include "tools/kelutv/compliance/framework/OtherValues.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/StateReader.h"
#include "tools/kelutv/snapshot/StateText.h"
#include "wire/text/ResultNames.h"

#include <utility>

namespace kelutv::tool::compliance {

namespace {

[[noreturn]] void end(Verdict verdict, const std::string& reason) { throw Ended{{verdict, reason, std::nullopt}}; }

/** Nothing while everything may be set. */
std::optional<std::set<std::string>>& statesToSet() {
    static std::optional<std::set<std::string>> states;
    return states;
}

void requireMaySet(const std::string& state) {
    const auto& states = statesToSet();
    if (states && states->count(state) == 0) {
        end(Verdict::leftOut, "it could not be read before the run, so that the file to put back lacks " + state);
    }
}

HeldState heldBy(const Reading& reading) {
    const StateRead read = readState(reading);
    if (!read.refusal.empty()) {
        end(read.refusal.rfind("refused", 0) == 0 ? Verdict::refused : Verdict::failed, read.refusal);
    }
    return {read.state, read.values, reading, read.result};
}

/** What is wrong with the answer to a set, or what it has against it; nothing when it took it. */
std::optional<Outcome> objectionIn(const Answer& answer) {
    if (answer.exchange.status != 0) {
        return Outcome{Verdict::failed, noReplyText(answer.exchange.status), answer.exchange};
    }
    if (answer.reading.flaw) {
        return Outcome{Verdict::failed, "the answer to the set: " + textOf(*answer.reading.flaw), answer.exchange};
    }
    return answer.isSuccess()
               ? std::nullopt
               : std::optional(Outcome{Verdict::refused,
                                       "the service answered " + wire::resultText(answer.reading.reply.result),
                                       answer.exchange});
}

} // namespace

void setOnly(std::set<std::string> states) { statesToSet() = std::move(states); }

Setting::Setting(Television& television, const wire::Function& setter, const Reading& reading)
    : mTelevision(television), mSetter(setter), mBefore(heldBy(reading)) {
    requireMaySet(mBefore.state);
    const FoundCall back = callOf(setter, mBefore);
    if (back.call.function == nullptr) {
        end(Verdict::inconclusive, "what it holds cannot be put back: " + back.complaint);
    }
    mBack = back.call;
}

Setting::~Setting() {
    if (mIsSet) {
        try {
            send(mBack);
        } catch (const ToolError&) {
            // The values to put back are in the file.
        }
    }
}

/** Goes through the calls that would give it another value, until one is taken. */
template <typename Try> void Setting::tryOthers(Try isTaken) {
    std::string complaint = "the catalogue gives it no other value";
    for (const Json& values : otherValues(mSetter, mBefore)) {
        HeldState wanted = mBefore;
        wanted.values = values;
        const FoundCall found = callOf(mSetter, wanted);
        complaint = found.complaint;
        if (found.call.function != nullptr) {
            mCall = found.call;
            mWanted = values;
            mIsSet = true;
            if (isTaken()) {
                return;
            }
        }
    }
    end(Verdict::inconclusive, complaint);
}

void Setting::setOther() {
    std::optional<Outcome> refusal;
    try {
        tryOthers([&] {
            refusal = send(mCall);
            return !refusal;
        });
    } catch (const Ended&) {
        if (refusal) {
            throw Ended{*refusal};
        }
        throw;
    }
}

void Setting::set(const Json& values) {
    HeldState wanted = mBefore;
    wanted.values = values;
    const FoundCall found = callOf(mSetter, wanted);
    if (found.call.function == nullptr) {
        end(Verdict::inconclusive, found.complaint);
    }
    mCall = found.call;
    mWanted = values;
    mIsSet = true;
    if (const auto refusal = send(mCall)) {
        throw Ended{*refusal};
    }
}

Bytes Setting::requestForOther() {
    Bytes request;
    tryOthers([&] {
        const std::vector<Bytes> requests = requestsOf(*mCall.function, mCall.arguments);
        request = requests.size() == 1 ? requests.front() : Bytes();
        return !request.empty();
    });
    return request;
}

void Setting::requireUnchanged() {
    requireRead(mBefore.values, "it was not to change from ");
    mIsSet = false;
}

void Setting::setAgain() {
    if (auto refusal = send(mCall)) {
        refusal->verdict = Verdict::failed;
        refusal->reason = "not taken again: " + refusal->reason;
        throw Ended{*refusal};
    }
}

void Setting::requireSet() const { requireRead(mWanted, "set to "); }

void Setting::putBack() {
    if (auto refusal = send(mBack)) {
        refusal->verdict = Verdict::failed;
        refusal->reason = "cannot be put back to " + valuesText(mBefore.state, mBefore.values) + ": " + refusal->reason;
        throw Ended{*refusal};
    }
    mIsSet = false;
    requireRead(mBefore.values, "put back to ");
}

/** What the service has against the call; nothing when it took it. */
std::optional<Outcome> Setting::send(const SetCall& call) const {
    if (call.function->requests.size() != 1) {
        // What a later request says may depend on the answer to an earlier one.
        const CallResult result = tryFunction(*call.function, call.arguments);
        for (const interposition::Transaction& each : result.transactions) {
            if (auto objection = objectionIn(answerIn({kRequestCode, each.request, each.status, each.reply}))) {
                return objection;
            }
        }
        return std::nullopt;
    }
    for (const Bytes& request : requestsOf(*call.function, call.arguments)) {
        if (auto objection = objectionIn(answerTo(mTelevision, request))) {
            return objection;
        }
    }
    return std::nullopt;
}

void Setting::requireRead(const Json& wanted, const std::string& when) const {
    const StateRead read = readState(mBefore.reading);
    if (!read.refusal.empty()) {
        end(Verdict::failed, when + valuesText(mBefore.state, wanted) + ", and then " + read.refusal);
    }
    if (!readsAs(wanted, read.values)) {
        end(Verdict::failed,
            when + valuesText(mBefore.state, wanted) + ", it reads " + valuesText(mBefore.state, read.values));
    }
}

} // namespace kelutv::tool::compliance
