#pragma once

#include <string>
#include <vector>

namespace kelutv::simulator {

/** An event of the television, published or still to be. */
struct PublishedEvent {
    unsigned int identifier;
    std::string payload;
    /** The text of the trace after the identifier. */
    std::string text;
};

using PublishedEvents = std::vector<PublishedEvent>;

} // namespace kelutv::simulator
