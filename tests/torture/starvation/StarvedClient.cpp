#include "torture/starvation/StarvedClient.h"

#include "torture/operations/EveryShape.h"

#include <kelutv/Audio.h>
#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_notify.h>

#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>

namespace kelutv::test {

namespace {

using namespace std::chrono_literals;

/** Far more than any run takes; what takes longer hangs. */
constexpr auto kRunPatience = 6s;
/** Events that a refusal kept from the client never come, which only time can tell. */
constexpr auto kEventPatience = 300ms;
constexpr auto kLossPatience = 3s;

std::atomic<unsigned int> gEvents{0};
std::atomic<unsigned int> gLastEvent{0};
std::atomic<bool> gEventsInOrder{true};

/** The events of a request carry their numbers, from 1. */
void onEvent(int, void* data, unsigned int length, void*) {
    unsigned int number = 0;
    if (length == sizeof number) {
        std::memcpy(&number, data, sizeof number);
    }
    if (number <= gLastEvent.exchange(number) || number > kEventsPerRequest) {
        gEventsInOrder = false;
    }
    ++gEvents;
}

/** Looks again and again, without asking for anything that can be refused. */
template <typename Condition> bool within(std::chrono::milliseconds patience, Condition holds) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!holds()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        constexpr timespec kPause{0, 200000};
        ::nanosleep(&kPause, nullptr);
    }
    return true;
}

std::string lastLineOf(const std::string& text) {
    const std::size_t end = text.find_last_not_of('\n');
    const std::size_t begin = end == std::string::npos ? end : text.rfind('\n', end);
    return text.substr(begin == std::string::npos ? 0 : begin + 1);
}

} // namespace

StarvedClient::StarvedClient() : mOperations(everyShape()), mService(mOperations) {}

ClientRun StarvedClient::run(const Starved& starved) {
    mService.start();
    mNotes.renew();
    mStarvation.renew();
    ForkedProcess client([&] { live(starved); });
    const std::optional<int> status = client.wait(kRunPatience);
    client.kill();
    const std::string text = client.text();
    const Ending ending = judge(text, status);
    std::string what = mNotes->firstWrong.data();
    if (mService.wrongRequests() > 0) {
        what += " sent " + std::string(mService.firstWrongRequest());
    }
    if (ending == kCrashed) {
        what += "wait status " + std::to_string(*status);
    }
    return {ending, what + "\n" + text, mStarvation->seen};
}

void StarvedClient::live(const Starved& starved) {
    starvation::usePage(&*mStarvation);
    arm(*mStarvation, starved, ::getpid());
    linux_tv_registerCallbackFunc(onEvent);
    for (const Operation& operation : mOperations) {
        callConnected(operation);
    }
    takeEvents();
    loseService();
    for (const Operation& operation : mOperations) {
        callWithoutService(operation);
    }
}

void StarvedClient::callConnected(const Operation& operation) {
    Outcome outcome;
    operation.call(outcome);
    mNotes->note(operation, outcome);
}

void StarvedClient::callWithoutService(const Operation& operation) {
    Outcome outcome;
    operation.call(outcome);
    if (operation.failures.front() != outcome.text()) {
        mNotes->noteWrong(operation.name, outcome.text());
    }
}

void StarvedClient::takeEvents() {
    const int published = android::TVBaseClient::self()->exeCmdSet(kPublishCommand);
    const bool all = published == 0 && within(kEventPatience, [] { return gEvents == kEventsPerRequest; });
    if (!gEventsInOrder || (published != 0 && published != -1)) {
        mNotes->noteWrong("events", "others than were published, or in another order");
    } else {
        ++(all ? mNotes->right : mNotes->failed);
    }
}

void StarvedClient::loseService() {
    ::kill(mService.pid(), SIGKILL);
    if (!within(kLossPatience, [] { return Audio::instance()->getSoundMode() == -1; })) {
        mNotes->noteWrong("Audio::getSoundMode", "an answer of a service that is gone");
    }
}

Ending StarvedClient::judge(const std::string& text, std::optional<int> status) const {
    if (mNotes->wrong > 0 || mService.wrongRequests() > 0) {
        return kWrong;
    }
    if (!status) {
        return kHung;
    }
    if (WIFSIGNALED(*status) && WTERMSIG(*status) == SIGABRT &&
        lastLineOf(text).find("out of memory") != std::string::npos) {
        return kOutOfMemory;
    }
    if (!WIFEXITED(*status) || WEXITSTATUS(*status) != 0) {
        return kCrashed;
    }
    if (mNotes->right == 0) {
        return kUnconnected;
    }
    return mNotes->failed == 0 ? kRight : mNotes->failed == 1 ? kOneFailed : kSomeFailed;
}

} // namespace kelutv::test
