#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/doctor/Asking.h"
#include "tools/kelutv/doctor/Check.h"
#include "tools/kelutv/service/ReplyCheck.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "wire/Interface.h"

#include <algorithm>
#include <cstring>

namespace kelutv::tool {

namespace {

constexpr char kReads[] = "read.";

/** The first value that the parameter may have. */
std::string plainValue(const wire::ValueType& type) {
    if (type.names != nullptr) {
        for (const wire::Enumerator& each : type.names->values) {
            if (!each.isEndMarker) {
                return each.name;
            }
        }
    }
    return type.range != nullptr && type.range->least ? std::to_string(*type.range->least) : "0";
}

std::string plainArgument(const wire::Parameter& parameter) {
    switch (parameter.values.kind) {
    case wire::ValueKind::Text:
        return "\"\"";
    case wire::ValueKind::Array:
        return parameter.isLedByLength ? "hex:00000000" : "[0]";
    case wire::ValueKind::Record:
        return "";
    case wire::ValueKind::Callback:
        return "null";
    default:
        return plainValue(parameter.values);
    }
}

std::vector<std::string> plainArguments(const wire::Function& function) {
    std::vector<std::string> arguments;
    for (const wire::Parameter* const parameter : givenParameters(function)) {
        if (parameter->direction != wire::Direction::Length) {
            arguments.push_back(plainArgument(*parameter));
        }
    }
    return arguments;
}

std::chrono::nanoseconds timeOfCall(const CallResult& call) {
    std::chrono::nanoseconds time{0};
    for (const interposition::Transaction& transaction : call.transactions) {
        time += transaction.duration;
    }
    return time;
}

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

/** Whether it takes any item of the module, none of which is plain. */
bool takesAnyItem(const wire::Function& function) {
    return std::any_of(function.requests.begin(), function.requests.end(), [](const wire::SentRequest& request) {
        const wire::Command* const command = wire::findCommand(request.commandValue);
        return request.item == nullptr && command != nullptr && command->hasItems;
    });
}

bool isRead(const wire::Function& function) {
    return function.effect.kind == wire::EffectKind::Read && function.requests.size() > 0 && !takesAnyItem(function);
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
        if (isRead(function)) {
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
