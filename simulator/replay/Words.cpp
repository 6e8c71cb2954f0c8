#include "simulator/replay/Words.h"

#include "wire/events/EventTable.h"
#include "wire/text/Describe.h"
#include "wire/text/Join.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <cstdio>
#include <tuple>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kMostOfRequest = 400;
constexpr std::size_t kMostMissing = 20;

struct Counts {
    std::size_t recorded = 0;
    std::size_t asked = 0;
    std::size_t early = 0;
    std::size_t again = 0;
    std::size_t unrecorded = 0;
};

std::string wordsOf(const wire::Request& request) { return wire::shown(describe(request), kMostOfRequest); }

std::string wordsOf(const RecordedCall& call) {
    return wordsOf(call.request) + " of line " + std::to_string(call.line);
}

std::string callerText(pid_t caller) { return '[' + std::to_string(caller) + "] "; }

/** By name, the arguments that are not the same. */
std::vector<std::string> differencesOf(const wire::Request& one, const wire::Request& other) {
    std::vector<std::string> names;
    const std::size_t most = std::max(one.arguments.size(), other.arguments.size());
    const wire::Rows<wire::RequestItem>& items = wire::itemsOf(one.arguments.size() == most ? one : other);
    for (std::size_t i = 0; i < most; ++i) {
        const bool isInBoth = i < one.arguments.size() && i < other.arguments.size();
        if (!isInBoth || one.arguments[i] != other.arguments[i]) {
            names.emplace_back(items[i].name);
        }
    }
    return names;
}

/** Of the same command: the one with the fewest other arguments, of several one that has not been asked for. */
const RecordedCall* nearestOf(const ReplayScript& script, const Progress& progress, const wire::Request& request) {
    const RecordedCall* nearest = nullptr;
    std::tuple<std::size_t, bool> least;
    for (std::size_t index = 0; index < script.calls.size(); ++index) {
        const RecordedCall& call = script.calls[index];
        if (call.request.command != request.command) {
            continue;
        }
        const std::tuple<std::size_t, bool> distance(differencesOf(call.request, request).size(),
                                                     progress.calls[index] != Progress::Call::Waiting);
        if (nearest == nullptr || distance < least) {
            nearest = &call;
            least = distance;
        }
    }
    return nearest;
}

std::string hintWithoutCommand(const ReplayScript& script, const wire::Request& request) {
    std::vector<std::string> names;
    for (const RecordedCall& call : script.calls) {
        names.push_back(commandNameOf(call.request));
    }
    const std::vector<std::string> near = wire::nearestNames(commandNameOf(request), names);
    return near.empty() ? "; the recording has none of its command" : "; nearest: " + near.front();
}

std::string hintFor(const ReplayScript& script, const Progress& progress, const wire::Request& request) {
    if (request.command == nullptr) {
        return "";
    }
    const RecordedCall* const nearest = nearestOf(script, progress, request);
    if (nearest == nullptr) {
        return hintWithoutCommand(script, request);
    }
    const std::vector<std::string> names = differencesOf(nearest->request, request);
    return "; nearest: " + wordsOf(*nearest) +
           (names.empty() ? ", which has been asked for" : ", which differs in " + wire::joined(names));
}

std::map<std::string, Counts> countsOf(const ReplayScript& script, const Progress& progress) {
    std::map<std::string, Counts> all;
    for (std::size_t index = 0; index < script.calls.size(); ++index) {
        const Progress::Call call = progress.calls[index];
        if (call != Progress::Call::Gone && call != Progress::Call::Failing) {
            Counts& counts = all[commandNameOf(script.calls[index].request)];
            ++counts.recorded;
            counts.asked += call != Progress::Call::Waiting ? 1 : 0;
            counts.early += call == Progress::Call::Early ? 1 : 0;
        }
    }
    for (const auto& [name, count] : progress.again) {
        all[name].again = count;
    }
    for (const auto& [name, count] : progress.unrecorded) {
        all[name].unrecorded = count;
    }
    return all;
}

Counts sumOf(const std::map<std::string, Counts>& all) {
    Counts sum;
    for (const auto& [name, counts] : all) {
        sum.recorded += counts.recorded;
        sum.asked += counts.asked;
        sum.early += counts.early;
        sum.again += counts.again;
        sum.unrecorded += counts.unrecorded;
    }
    return sum;
}

std::string rowOf(const std::string& name, const Counts& counts) {
    char numbers[128];
    std::snprintf(numbers, sizeof(numbers), "%8zu %9zu %9zu %7zu %7zu %12zu  ", counts.recorded, counts.asked,
                  counts.recorded - counts.asked, counts.early, counts.again, counts.unrecorded);
    return numbers + name;
}

std::string eventsText(const ReplayScript& script, const Progress& progress) {
    const auto events = static_cast<std::size_t>(
        std::count_if(script.happenings.begin(), script.happenings.end(),
                      [](const Happening& happening) { return !happening.death.has_value(); }));
    return std::to_string(events - unpublishedOf(script, progress).size()) + " of " + std::to_string(events) +
           " events published";
}

std::string wordsOf(const Happening& happening) {
    const wire::EventTable events(wire::simulatedEvents());
    const wire::Event* const known = events.find(happening.event.identifier);
    char identifier[32];
    std::snprintf(identifier, sizeof(identifier), "event 0x%X", happening.event.identifier);
    return identifier + (known != nullptr ? std::string(" ") + known->name : "") + " of line " +
           std::to_string(happening.line);
}

/** The first of what is missing, and how much more there is. */
void addMissing(const std::string& how, const std::vector<std::string>& missing, std::vector<std::string>& lines) {
    for (std::size_t index = 0; index < missing.size() && index < kMostMissing; ++index) {
        lines.push_back(how + ": " + missing[index]);
    }
    if (missing.size() > kMostMissing) {
        lines.push_back(how + ": " + std::to_string(missing.size() - kMostMissing) + " more");
    }
}

std::vector<std::string> unaskedOf(const ReplayScript& script, const Progress& progress) {
    std::vector<std::string> unasked;
    for (std::size_t index = 0; index < script.calls.size(); ++index) {
        if (progress.calls[index] == Progress::Call::Waiting) {
            unasked.push_back(wordsOf(script.calls[index]));
        }
    }
    return unasked;
}

} // namespace

std::vector<const Happening*> unpublishedOf(const ReplayScript& script, const Progress& progress) {
    std::vector<const Happening*> unpublished;
    for (std::size_t index = 0; index < script.happenings.size(); ++index) {
        if (!script.happenings[index].death && !progress.published[index]) {
            unpublished.push_back(&script.happenings[index]);
        }
    }
    return unpublished;
}

std::string commandNameOf(const wire::Request& request) {
    const std::string item = wire::itemNameOf(request);
    if (!item.empty()) {
        return item;
    }
    return request.command != nullptr ? request.command->name : describe(request);
}

std::string earlyText(const ReplayScript& script, pid_t caller, std::size_t call, std::size_t before) {
    return callerText(caller) + wordsOf(script.calls[call]) + " is asked for before " + wordsOf(script.calls[before]);
}

std::string unrecordedText(const ReplayScript& script, const Progress& progress, pid_t caller,
                           const wire::Request& request) {
    return callerText(caller) + wordsOf(request) + " was not recorded" + hintFor(script, progress, request);
}

std::vector<std::string> reportOn(const ReplayScript& script, const Progress& progress) {
    const std::map<std::string, Counts> all = countsOf(script, progress);
    const Counts sum = sumOf(all);
    std::vector<std::string> lines{std::to_string(sum.asked) + " of " + std::to_string(sum.recorded) +
                                       " recorded requests asked for, " + std::to_string(sum.early) + " early, " +
                                       std::to_string(sum.unrecorded) + " that were not recorded; " +
                                       eventsText(script, progress),
                                   "recorded asked for not asked   early   again not recorded  command"};
    for (const auto& [name, counts] : all) {
        lines.push_back(rowOf(name, counts));
    }
    addMissing("not asked for", unaskedOf(script, progress), lines);
    std::vector<std::string> unpublished;
    for (const Happening* const happening : unpublishedOf(script, progress)) {
        unpublished.push_back(wordsOf(*happening));
    }
    addMissing("not published", unpublished, lines);
    return lines;
}

} // namespace kelutv::simulator
