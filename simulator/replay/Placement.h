#pragma once

#include "simulator/replay/ReplayScript.h"

namespace kelutv::simulator {

/** A line of a section that tells of a request, an event or the loss of the service. */
struct News {
    enum class Kind { Call, Event, Loss };

    std::size_t line;
    std::size_t client;
    Kind kind;
    /** Since time 0 of the section; of a request when it was sent. */
    std::chrono::nanoseconds time;
    /** Of a request: its index among the calls of the script. */
    std::size_t call;
    /** Of an event. */
    std::uint32_t event;
    std::string payload;
};

/**
 * Finds the place of each event and each death among the requests of a section, and puts them into the script.
 *
 * An event that several processes were given is one happening, and so is a death that several lines tell of.
 */
void placeNews(const std::vector<News>& section, ReplayScript& script);

} // namespace kelutv::simulator
