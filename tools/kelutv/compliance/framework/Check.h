#pragma once

#include "tools/kelutv/compliance/framework/Television.h"
#include "tools/kelutv/compliance/results/CheckResult.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** What a check is about; `CheckResult` says what each of them is. */
struct Subject {
    std::string id;
    std::string family;
    std::string module;
    std::string function;
    std::string sentence;
};

/** What making a check came to. */
struct Outcome {
    Verdict verdict = Verdict::passed;
    /** Why; empty when it passed. */
    std::string reason;
    /** The exchange that decided. */
    std::optional<Exchange> exchange;
    /** Whether a process of it was given up, so that a request may still be carried out. */
    bool isGivenUp = false;
};

/** One thing that is demanded of a service. */
class Check {
public:
    explicit Check(Subject subject) : mSubject(std::move(subject)) {}
    virtual ~Check() = default;
    Check(const Check&) = delete;
    Check& operator=(const Check&) = delete;

    const Subject& subject() const { return mSubject; }

    /** Whether it may change what the television keeps, which is put back. */
    virtual bool changesState() const { return false; }

    /** Why it is not made; empty when it is. */
    virtual std::string whyLeftOut() const { return ""; }

    /**
     * Whether it starts processes of its own, and does not ask in the one that makes it: it is made in the process that
     * makes the run, which has not used the library, and bounds its waits itself. Such checks come behind all others.
     */
    virtual bool startsProcesses() const { return false; }

    /** The event that it waits for; empty for one that waits for none. */
    virtual std::string event() const { return ""; }

    /** How long it may wait for something else than an answer. */
    virtual std::chrono::duration<double> pause() const { return {}; }

    /**
     * Runs in a process that is given up when an answer takes too long; the library may be used there.
     *
     * @throws ToolError what makes it fail
     */
    virtual Outcome run(Television& television) const = 0;

private:
    Subject mSubject;
};

/** How a check says that its event did not come, at the time or another time. */
inline std::string missedText(const std::string& event) { return "no " + event + " came"; }

using Checks = std::vector<std::unique_ptr<const Check>>;

/** A check that is not made, and says why. */
class LeftOutCheck : public Check {
public:
    LeftOutCheck(Subject subject, std::string reason) : Check(std::move(subject)), mReason(std::move(reason)) {}

    std::string whyLeftOut() const override { return mReason; }
    Outcome run(Television& /*television*/) const override { return {Verdict::leftOut, mReason, std::nullopt}; }

private:
    std::string mReason;
};

} // namespace kelutv::tool::compliance
