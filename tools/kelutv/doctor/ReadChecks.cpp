#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/calls/PlainArguments.h"
#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/checks/Reads.h"
#include "tools/kelutv/doctor/DoctorChecks.h"
#include "tools/kelutv/service/ReplyCheck.h"
#include "tools/kelutv/text/FunctionNamed.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

constexpr char kReads[] = "read.";

Finding read(const wire::Function& function, double slow) {
    const CallResult call = tryFunction(function, plainArguments(function));
    const auto time = timeOfCall(call);
    const auto failure = failureIn(call.transactions, function.statusIsValue);
    if (failure && !failure->result) {
        return {Verdict::Bad, "malformed: " + failure->text, time};
    }
    if (!call.failure.empty()) {
        return {Verdict::Warning, "refused: " + call.failure, time};
    }
    if (time > std::chrono::duration<double>(slow)) {
        return {Verdict::Warning, "slow: " + millisecondsText(time), time};
    }
    return {Verdict::Good, "answered", time};
}

Finding measure(const wire::Function& function, double limit) {
    constexpr std::size_t kCalls = 200;
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(limit / 2);
    std::vector<std::chrono::nanoseconds> times;
    while (times.size() < kCalls && std::chrono::steady_clock::now() < end) {
        times.push_back(timeOfCall(tryFunction(function, plainArguments(function))));
    }
    std::sort(times.begin(), times.end());
    const auto at = [&times](std::size_t percent) { return times[(times.size() - 1) * percent / 100]; };
    return {Verdict::Good,
            "p50 " + millisecondsText(at(50)) + ", p99 " + millisecondsText(at(99)) + " of " +
                std::to_string(times.size()) + " calls of " + function.shortName,
            at(50)};
}

} // namespace

bool isReadCheck(const Check& check) { return check.name.rfind(kReads, 0) == 0; }

void addReadChecks(std::vector<Check>& checks, const DoctorOptions& options) {
    for (const wire::Function& function : wire::allFunctions()) {
        if (isAnsweredRead(function)) {
            checks.push_back(
                {kReads + std::string(function.shortName), function.module, options.limit,
                 [&function, slow = options.slow] { return askingFinds([&] { return read(function, slow); }); }});
        }
    }
}

void addLatencyCheck(std::vector<Check>& checks, const DoctorOptions& options) {
    const wire::Function& function = functionNamed("linux_tv_Audio_getVolume");
    checks.push_back({"latency", "latency", options.limit, [&function, limit = options.limit] {
                          return askingFinds([&] { return measure(function, limit); });
                      }});
}

} // namespace kelutv::tool
