#pragma once

#include "tools/kelutv/output/Json.h"
#include "tools/kelutv/trace/TracePipe.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace kelutv::tool {

/** What calls and events come to. The median and the 99th of 100 are given to three digits. */
class Statistics {
public:
    void add(const TracedTransaction& transaction);
    void addEvent(std::chrono::nanoseconds time);
    /** What comes from now on has another clock. */
    void beginSection();
    void addLeftOut(std::uint32_t count) { mLeftOut += count; }

    /**
     * A table of the commands, the most frequent first, then the slowest calls, the failures with their arguments, and
     * the events.
     *
     * @param mostRows of the table; 0 for all
     */
    std::vector<std::string> lines(std::size_t mostRows = 0) const;

    Json document() const;

private:
    struct Command {
        std::size_t count = 0;
        std::size_t failures = 0;
        std::int64_t greatest = 0;
        /** How many calls took how many nanoseconds, these to three digits: as many entries as there are such numbers,
         * not as there are calls. */
        std::map<std::int64_t, std::size_t> durations;
    };
    struct Call {
        std::int64_t duration;
        std::string text;
    };
    /** Of one command, with what the lists of its durations come to. */
    struct Row {
        std::string name;
        std::size_t count;
        std::size_t failures;
        std::int64_t median;
        std::int64_t most99;
        std::int64_t greatest;
    };

    static std::int64_t percentile(const Command& command, std::size_t percent);
    std::vector<Row> rows() const;
    void keepSlow(std::int64_t duration, const std::string& text);
    std::chrono::duration<double> time() const;
    double eventsPerSecond() const;
    void noteTime(std::chrono::nanoseconds time);

    std::map<std::string, Command> mCommands;
    /** The slowest first. */
    std::vector<Call> mSlowest;
    /** How often each call failed, by its text. */
    std::map<std::string, std::size_t> mFailures;
    std::size_t mEvents = 0;
    std::uint64_t mLeftOut = 0;
    /** Of the sections before. */
    std::chrono::duration<double> mTime{};
    std::chrono::nanoseconds mFirst{std::chrono::nanoseconds::max()};
    std::chrono::nanoseconds mLast{std::chrono::nanoseconds::min()};
};

} // namespace kelutv::tool
