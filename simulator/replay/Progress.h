#pragma once

#include "simulator/replay/ReplayScript.h"

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** How far a replay is: what a service that dies hands over to the one that comes after it. */
struct Progress {
    enum class Call : char {
        Waiting = '.',
        /** Asked for in its turn. */
        Asked = '+',
        /** Asked for before one that the recording has in front of it. */
        Early = '^',
        /** Failed in the recording since the service was gone, and is gone here, too. */
        Gone = 'x',
        /** The same of a process that had found no service: it may come, to fail again, and has come and failed. */
        Failing = '-',
        Failed = '!',
    };
    using Clock = std::chrono::steady_clock;
    struct Pending {
        Clock::time_point due;
        /** An index of happenings. */
        std::size_t happening;
    };

    explicit Progress(const ReplayScript& script)
        : calls(script.calls.size(), Call::Waiting), last(script.threads), published(script.happenings.size(), false) {}

    std::vector<Call> calls;
    /** The request that each recorded thread was asked for last. */
    std::vector<std::optional<std::size_t>> last;
    /** Of the happenings. */
    std::vector<bool> published;
    /** Those that are still to come, since the requests before them have been asked for. */
    std::vector<Pending> pending;
    /** Before this time there is no service. */
    Clock::time_point returnTime;
    /** The recorded process that a live one is taken for. */
    std::map<pid_t, std::size_t> clients;
    /** How often commands were asked for whose recorded requests had all been asked for, and those not recorded. */
    std::map<std::string, std::size_t> again;
    std::map<std::string, std::size_t> unrecorded;
};

/** Whether a request can still be asked for. */
inline bool isLeft(Progress::Call call) { return call == Progress::Call::Waiting || call == Progress::Call::Failing; }

/** A request that is left, asked for in its turn, and taken back. */
Progress::Call askedFor(Progress::Call call);
Progress::Call takenBack(Progress::Call call);

/** The progress as text, and back. @throws ReplayError when the text is none of this script */
std::string textOf(const Progress& progress);
Progress progressOf(const ReplayScript& script, const std::string& text);

} // namespace kelutv::simulator
