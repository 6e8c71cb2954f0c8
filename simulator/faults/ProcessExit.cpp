#include "simulator/faults/ProcessExit.h"

#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <utility>

namespace kelutv::simulator {

namespace {

constexpr int kMostLooks = 200;
constexpr std::chrono::milliseconds kBetweenLooks{10};

/** The state of a thread and how often it has run, as the kernel reports it. */
std::string statusOf(pid_t thread) {
    std::ifstream file("/proc/self/task/" + std::to_string(thread) + "/status");
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/** Asleep, or gone with its caller. */
bool isIdle(const std::string& status) { return status.empty() || status.find("State:\tS") != std::string::npos; }

/** Nothing reports that a reply is out; that the thread has not run since the last look shows it. */
void waitUntilIdle(pid_t thread) {
    std::string before;
    for (int look = 0; look < kMostLooks; ++look) {
        const std::string now = statusOf(thread);
        if (now == before && isIdle(now)) {
            break;
        }
        before = now;
        std::this_thread::sleep_for(kBetweenLooks);
    }
}

} // namespace

void whenAnswered(pid_t thread, std::function<void()> act) {
    std::thread([thread, act = std::move(act)] {
        waitUntilIdle(thread);
        act();
    }).detach();
}

void exitWhenAnswered() {
    whenAnswered(::gettid(), [] { ::_exit(kFaultExitCode); });
}

} // namespace kelutv::simulator
