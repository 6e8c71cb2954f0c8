#include "tools/kelutv/compliance/form/FormChecks.h"

#include "tools/kelutv/checks/Reads.h"
#include "tools/kelutv/compliance/form/Aspects.h"
#include "tools/kelutv/compliance/framework/Answer.h"
#include "tools/kelutv/compliance/framework/Identifiers.h"
#include "tools/kelutv/compliance/framework/Samples.h"
#include "tools/kelutv/snapshot/StateRules.h"

namespace kelutv::tool::compliance {

namespace {

constexpr char kFamily[] = "form";

class FormCheck : public Check {
public:
    FormCheck(Reading reading, const Aspect& aspect)
        : Check(subjectOf(kFamily, reading, aspect.name, aspect.sentence)), mReading(std::move(reading)),
          mJudge(aspect.judge) {}

    Outcome run(Television& television) const override {
        for (const Bytes& request : requestsFor(mReading)) {
            const Answer answer = answerTo(television, request);
            Outcome outcome = mJudge(*mReading.function, answer);
            if (outcome.verdict != Verdict::passed) {
                outcome.exchange = answer.exchange;
                return outcome;
            }
        }
        return {};
    }

private:
    Reading mReading;
    Judge mJudge;
};

void add(Checks& checks, const Reading& reading) {
    for (const Aspect& aspect : aspectsOf(*reading.function)) {
        checks.push_back(std::make_unique<FormCheck>(reading, aspect));
    }
}

} // namespace

void addFormChecks(Checks& checks, const Terms& /*terms*/) {
    const Readings readings = allReadings();
    for (const Reading& reading : readings.asked) {
        if (reading.function->requests.size() > 0) {
            add(checks, reading);
        }
    }
    for (const Unasked& unasked : readings.unasked) {
        const wire::Function& function = *unasked.function;
        if (takesAnyItem(function)) {
            checks.push_back(std::make_unique<LeftOutCheck>(
                subjectOf(kFamily, function, "payload", "Reads any item of the module."), unasked.reason));
        } else if (function.requests.size() > 0) {
            add(checks, sampleOf(function));
        }
    }
}

} // namespace kelutv::tool::compliance
