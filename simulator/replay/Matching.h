#pragma once

#include "simulator/replay/Progress.h"

#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** What a request is in a recording. */
struct Match {
    /** An index of calls. */
    std::size_t call;
    /** A request that the recording has in front of it and that has not been asked for. */
    std::optional<std::size_t> before = std::nullopt;
    /** All such requests have been asked for; this is the last one again. */
    bool isAgain = false;
    /** What counts as asked for, and no more as asked for, since a process is taken for another recorded one now. */
    std::vector<std::size_t> exchanged = {};
    std::vector<std::size_t> takenBack = {};
};

/** How requests are found in a recording. */
class Matching {
public:
    Matching() = default;
    virtual ~Matching() = default;
    Matching(const Matching&) = delete;
    Matching& operator=(const Matching&) = delete;

    /** The recorded request that this one is, which is noted in the progress; nothing for one that was not recorded. */
    virtual std::optional<Match> find(Progress& progress, pid_t caller, const std::string& key) = 0;
};

/**
 * In the order of each recorded thread.
 *
 * A platform tells which process asks, but not which of its threads. So a live process is taken for the first recorded
 * one, in the order in which they appeared, that begins with what it asks for, and each of its requests for the next
 * one of that recorded thread of the process in which it comes first. A process that goes on as another recorded one
 * does, which began alike, is taken for that one from then on. A process for which no recorded one is left counts as
 * further threads of them all.
 */
std::unique_ptr<Matching> matchingInOrder(const ReplayScript& script);

/** By command and arguments: the next such request that has not been asked for, of whatever process; behind the last
 * one that again. */
std::unique_ptr<Matching> matchingLoosely(const ReplayScript& script);

} // namespace kelutv::simulator
