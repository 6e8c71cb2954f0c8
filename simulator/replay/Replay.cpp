#include "simulator/replay/Replay.h"

#include "simulator/replay/Words.h"

#include <algorithm>
#include <utility>

namespace kelutv::simulator {

namespace {

using std::chrono::nanoseconds;

/** So long after an answer comes what followed it in the recording, for a client to get ready for it. */
constexpr std::chrono::milliseconds kPause{100};

/** Nobody waits longer for anything. */
constexpr std::chrono::hours kLongest{24};

[[noreturn]] void refuse(const char* option, const std::string& allowed, const std::string& given) {
    throw ReplayError(std::string(option) + " takes " + allowed + ", not '" + given + "'");
}

std::unique_ptr<Matching> matchingOf(const ReplayScript& script, const std::string& name) {
    if (name == "strictly") {
        return matchingInOrder(script);
    }
    if (name == "loosely") {
        return matchingLoosely(script);
    }
    refuse("--match", "strictly or loosely", name);
}

Unrecorded unrecordedOf(const std::string& name) {
    if (name == "television") {
        return Unrecorded::Television;
    }
    if (name == "error") {
        return Unrecorded::Error;
    }
    if (name == "silence") {
        return Unrecorded::Silence;
    }
    refuse("--unrecorded", "television, error or silence", name);
}

} // namespace

Replay::Replay(ReplayScript script, const ReplayOptions& options)
    : mScript(std::move(script)), mSpeed(options.speed), mUnrecorded(unrecordedOf(options.unrecorded)),
      mMatching(matchingOf(mScript, options.match)), mHappenings(mScript.calls.size()), mProgress(mScript),
      mLastRequest(Clock::now()), mLastAnswer(mLastRequest) {
    for (std::size_t index = 0; index < mScript.happenings.size(); ++index) {
        if (const auto call = mScript.happenings[index].call) {
            mHappenings[*call].push_back(index);
        }
    }
    countWaiting();
}

void Replay::resume(const std::string& progress) {
    mProgress = progressOf(mScript, progress);
    mIsResumed = true;
    countWaiting();
}

void Replay::countWaiting() {
    mWaiting =
        static_cast<std::size_t>(std::count(mProgress.calls.begin(), mProgress.calls.end(), Progress::Call::Waiting));
}

void Replay::start() {
    mLastRequest = Clock::now();
    mLastAnswer = mLastRequest;
    if (mIsResumed) {
        resumePending();
        return;
    }
    const Clock::time_point first = mScript.calls.empty() ? mLastRequest + kPause : Clock::time_point::max();
    for (std::size_t index = 0; index < mScript.happenings.size(); ++index) {
        const Happening& happening = mScript.happenings[index];
        if (!happening.call) {
            mPending.push_back({mSpeed ? mLastRequest + played(happening.delay) : first, index});
        }
    }
}

void Replay::resumePending() {
    for (const Pending& each : mProgress.pending) {
        const bool hasTime = mSpeed || each.due == Clock::time_point::max();
        mPending.push_back({hasTime ? each.due : mLastRequest + kPause, each.happening});
    }
}

Replay::Step Replay::take(pid_t caller, const std::string& key, const wire::Request& request) {
    mLastRequest = Clock::now();
    const std::optional<Match> match = mMatching->find(mProgress, caller, key);
    if (!match) {
        Step step;
        step.complaint = unrecordedText(mScript, mProgress, caller, request);
        ++mProgress.unrecorded[commandNameOf(request)];
        return step;
    }
    Step step = stepFor(*match);
    if (match->before) {
        step.complaint = earlyText(mScript, caller, match->call, *match->before);
    }
    return step;
}

Replay::Step Replay::stepFor(const Match& match) {
    Step step;
    step.call = &mScript.calls[match.call];
    step.delay = mSpeed ? played(step.call->duration) : Clock::duration::zero();
    if (match.isAgain) {
        ++mProgress.again[commandNameOf(step.call->request)];
        return step;
    }
    const bool failsAgain = mProgress.calls[match.call] == Progress::Call::Failed;
    if (match.exchanged.empty() && match.takenBack.empty()) {
        mWaiting -= failsAgain ? 0 : 1;
    } else {
        countWaiting();
    }
    const Clock::time_point answer = mLastRequest + step.delay;
    mLastAnswer = std::max(mLastAnswer, answer);
    releaseFirst(answer);
    takeBack(match.takenBack);
    for (const std::size_t call : match.exchanged) {
        schedule(call, answer, step);
    }
    if (!mSpeed) {
        const PublishedEvents before = takePendingBefore(step.call->line);
        step.events.insert(step.events.end(), before.begin(), before.end());
    }
    if (!failsAgain) {
        meetDeath(answer, step);
    }
    schedule(match.call, answer, step);
    return step;
}

/** Others are answered meanwhile. */
void Replay::meetDeath(Clock::time_point time, Step& step) {
    if (!mSpeed) {
        step.death = step.call->death;
    } else if (const std::optional<std::size_t> death = step.call->death) {
        step.isSilent = true;
        mDeath = std::min(mDeath.value_or(std::pair(time, *death)), std::pair(time, *death));
    }
}

void Replay::schedule(std::size_t call, Clock::time_point answer, Step& step) {
    for (const std::size_t index : mHappenings[call]) {
        const Happening& happening = mScript.happenings[index];
        if (mProgress.published[index]) {
            continue;
        }
        if (mSpeed) {
            mPending.push_back({(happening.isDuring ? mLastRequest : answer) + played(happening.delay), index});
        } else if (happening.isDuring && !happening.death) {
            publish(index, step.events);
        } else {
            mPending.push_back({answer + kPause, index});
        }
    }
}

void Replay::takeBack(const std::vector<std::size_t>& calls) {
    const auto isTakenBack = [&](const Pending& each) {
        const std::optional<std::size_t> call = mScript.happenings[each.happening].call;
        return call && std::find(calls.begin(), calls.end(), *call) != calls.end();
    };
    mPending.erase(std::remove_if(mPending.begin(), mPending.end(), isTakenBack), mPending.end());
}

void Replay::releaseFirst(Clock::time_point answer) {
    for (Pending& each : mPending) {
        if (each.due == Clock::time_point::max()) {
            each.due = answer + kPause;
        }
    }
}

Replay::Clock::duration Replay::played(nanoseconds time) const {
    const std::chrono::duration<double, std::nano> exact = std::chrono::duration<double, std::nano>(time) / *mSpeed;
    return exact < kLongest ? std::chrono::duration_cast<Clock::duration>(exact) : kLongest;
}

/** Deaths have their time: whoever asks now is to have its answer. */
PublishedEvents Replay::takePendingBefore(std::size_t line) {
    PublishedEvents events;
    const auto isBefore = [this, line](const Pending& each) {
        const Happening& happening = mScript.happenings[each.happening];
        return !happening.death && happening.line < line;
    };
    for (const Pending& each : mPending) {
        if (isBefore(each)) {
            publish(each.happening, events);
        }
    }
    mPending.erase(std::remove_if(mPending.begin(), mPending.end(), isBefore), mPending.end());
    return events;
}

void Replay::publish(std::size_t happening, PublishedEvents& events) {
    mProgress.published[happening] = true;
    events.push_back(mScript.happenings[happening].event);
}

Replay::Due Replay::takeDue() {
    Due due;
    const Clock::time_point now = Clock::now();
    std::stable_sort(mPending.begin(), mPending.end(),
                     [](const Pending& one, const Pending& other) { return one.due < other.due; });
    std::vector<Pending> left;
    for (const Pending& each : mPending) {
        const Happening& happening = mScript.happenings[each.happening];
        if (each.due > now || due.death) {
            left.push_back(each);
        } else if (happening.death) {
            due.death = happening.death;
            mProgress.published[each.happening] = true;
        } else {
            publish(each.happening, due.events);
        }
    }
    mPending = std::move(left);
    if (mDeath && mDeath->first <= now && !due.death) {
        due.death = mDeath->second;
    }
    due.isOver = isDone() && now >= mLastAnswer + kPause;
    if (isDone() && !due.isOver) {
        due.next = mLastAnswer + kPause;
    }
    if (mDeath) {
        due.next = mDeath->first;
    }
    for (const Pending& each : mPending) {
        due.next = due.next ? std::min(*due.next, each.due) : each.due;
    }
    return due;
}

std::string Replay::die(std::size_t death) {
    for (std::size_t call = 0; call < mScript.calls.size(); ++call) {
        if (mScript.calls[call].death == death && mProgress.calls[call] == Progress::Call::Waiting) {
            const bool mayCome = mScript.calls[call].isWithoutService && !mSpeed;
            mProgress.calls[call] = mayCome ? Progress::Call::Failing : Progress::Call::Gone;
        }
    }
    countWaiting();
    for (std::size_t index = 0; index < mScript.happenings.size(); ++index) {
        if (mScript.happenings[index].death == death) {
            mProgress.published[index] = true;
        }
    }
    mProgress.pending.clear();
    for (const Pending& each : mPending) {
        if (!mProgress.published[each.happening]) {
            mProgress.pending.push_back(each);
        }
    }
    if (mSpeed) {
        mProgress.returnTime = Clock::now() + played(mScript.absences[death]);
    }
    return textOf(mProgress);
}

PublishedEvents Replay::takeRest() {
    PublishedEvents events;
    for (const Pending& each : mPending) {
        const Happening& happening = mScript.happenings[each.happening];
        if (happening.call && !happening.death) {
            publish(each.happening, events);
        }
    }
    mPending.clear();
    return events;
}

bool Replay::hasDifference() const {
    const auto isEarly = [](Progress::Call call) { return call == Progress::Call::Early; };
    return mWaiting > 0 || !mProgress.unrecorded.empty() || !unpublishedOf(mScript, mProgress).empty() ||
           std::any_of(mProgress.calls.begin(), mProgress.calls.end(), isEarly);
}

ReplayReport Replay::report() const {
    ReplayReport report{!hasDifference(), reportOn(mScript, mProgress)};
    report.lines.front() = "kelutv-simulator: replay of " + mScript.name + ": " + report.lines.front() +
                           (report.isAsRecorded ? "; no difference" : "");
    return report;
}

} // namespace kelutv::simulator
