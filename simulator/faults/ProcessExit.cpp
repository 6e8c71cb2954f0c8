#include "simulator/faults/ProcessExit.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <utility>
#include <vector>

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

std::vector<std::string> statusesOf(const std::set<pid_t>& threads) {
    std::vector<std::string> statuses;
    std::transform(threads.begin(), threads.end(), std::back_inserter(statuses), statusOf);
    return statuses;
}

} // namespace

/** Nothing reports that a reply is out; that the thread has not run since the last look shows it. */
void waitUntilIdle(const std::set<pid_t>& threads) {
    std::vector<std::string> before;
    for (int look = 0; look < kMostLooks && !threads.empty(); ++look) {
        std::vector<std::string> now = statusesOf(threads);
        if (now == before && std::all_of(now.begin(), now.end(), isIdle)) {
            break;
        }
        before = std::move(now);
        std::this_thread::sleep_for(kBetweenLooks);
    }
}

void exitWhenAnswered() {
    std::thread([thread = ::gettid()] {
        waitUntilIdle({thread});
        ::_exit(kFaultExitCode);
    }).detach();
}

} // namespace kelutv::simulator
