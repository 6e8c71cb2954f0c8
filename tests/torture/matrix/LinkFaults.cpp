#include "torture/matrix/LinkFaults.h"

#include "torture/matrix/SendFaults.h"

#include <kelutv/Audio.h>
#include <kelutv/commands.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <map>
#include <stdexcept>
#include <thread>

namespace kelutv::test {

namespace {

constexpr int kSoundMode = 3;

/** What the client calls to make the link. */
Operation firstCall() {
    return {"Audio::getSoundMode", {{requestOf(CMD_AUDIO_GETSOUNDMODE), replyOf({0, kSoundMode})}}, nullptr, "", {}};
}

void waitFor(const std::atomic<bool>& flag, const char* what) {
    if (!eventually([&] { return flag.load(); })) {
        throw std::runtime_error(what);
    }
}

void limitDescriptors(rlim_t number) {
    rlimit limit{};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = number == RLIM_INFINITY ? limit.rlim_max : number;
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

/** From now on this process gets no further descriptor. */
void leaveNoDescriptors() {
    const int next = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    ::close(next);
    limitDescriptors(static_cast<rlim_t>(next));
}

} // namespace

LinkFault::Kind LinkFault::kindOf(const std::string& name) {
    static const std::map<std::string, Kind> kinds = {
        {"absent", Kind::Absent},
        {"gone", Kind::Gone},
        {"ends in the call", Kind::EndsInCall},
        {"ends in the answer", Kind::EndsInAnswer},
        {"refuses the transaction", Kind::Refuses},
        {"unasked", Kind::Unasked},
        {"twice", Kind::Twice},
        {"late", Kind::Late},
        {"never", Kind::Never},
        {"stopped", Kind::Stopped},
        {"no descriptors", Kind::NoDescriptors},
        {"no more descriptors", Kind::NoMoreDescriptors},
    };
    const auto found = kinds.find(name);
    if (found == kinds.end()) {
        throw std::invalid_argument("there is no fault '" + name + "'");
    }
    return found->second;
}

LinkFault::LinkFault(const std::string& name, const Operation& operation)
    : mKind(kindOf(name)), mOperation(operation), mHit(static_cast<int>(operation.exchanges.size())),
      mService({firstCall(), operation}, [this](int number) { return beforeAnswer(number); }) {}

android::status_t LinkFault::beforeAnswer(int number) {
    if (number == 0 && mKind == Kind::Unasked) {
        setNextSend(NextSend::Keep);
        std::thread([this] {
            waitFor(mStage->held, "the client is not there");
            mStage->released = sendAgain();
        }).detach();
    }
    if (number == mHit - 1 && mKind == Kind::Twice) {
        setNextSend(NextSend::Twice);
    }
    if (number != mHit) {
        return android::NO_ERROR;
    }
    switch (mKind) {
    case Kind::EndsInCall:
        ::_exit(0);
    case Kind::EndsInAnswer:
        setNextSend(NextSend::Cut);
        return android::NO_ERROR;
    case Kind::Refuses:
        return android::INVALID_OPERATION;
    case Kind::Late:
    case Kind::Never:
        mStage->held = true;
        eventually([this] { return mStage->released.load(); });
        return android::NO_ERROR;
    default:
        return android::NO_ERROR;
    }
}

FaultyCalls LinkFault::make() {
    if (mKind != Kind::Absent) {
        mService.start();
    }
    ForkedProcess client([this] { live(); });
    waitFor(mStage->connected, "the client did not connect");
    prepare();
    mStage->go = true;
    finish();
    if (client.wait() != 0) {
        throw std::runtime_error("the client did not come to its end: " + client.text());
    }
    return {mStage->call.text(), mStage->next.text()};
}

void LinkFault::live() {
    if (mKind == Kind::NoDescriptors) {
        leaveNoDescriptors();
    }
    if (hasLink() && Audio::instance()->getSoundMode() != kSoundMode) {
        throw std::runtime_error("the client has no link");
    }
    if (mKind == Kind::NoMoreDescriptors) {
        leaveNoDescriptors();
    }
    mStage->connected = true;
    eventually([this] { return mStage->go.load(); });
    mStage->calling = true;
    mOperation.call(mStage->call);
    eventually([this] { return mStage->settled.load(); });
    mOperation.call(mStage->next);
    // What looks for leaks at the end takes descriptors.
    limitDescriptors(RLIM_INFINITY);
}

/** What happens to the service before the call. */
void LinkFault::prepare() {
    if (mKind == Kind::Gone) {
        mService.kill();
    } else if (mKind == Kind::Unasked) {
        mStage->held = true;
        waitFor(mStage->released, "the unasked answer cannot be sent");
    } else if (mKind == Kind::Stopped) {
        ::kill(mService.pid(), SIGSTOP);
    }
}

/** What happens to it while the client calls. */
void LinkFault::finish() {
    if (mKind == Kind::Late || mKind == Kind::Never) {
        waitFor(mStage->held, "the call does not reach the service");
    }
    if (mKind == Kind::Never) {
        mService.kill();
    } else if (mKind == Kind::Late) {
        mStage->released = true;
    } else if (mKind == Kind::Stopped) {
        waitFor(mStage->calling, "the client does not call");
        ::kill(mService.pid(), SIGCONT);
    } else if (mKind == Kind::EndsInCall || mKind == Kind::EndsInAnswer) {
        mService.awaitEnd();
    }
    mStage->settled = true;
}

} // namespace kelutv::test
