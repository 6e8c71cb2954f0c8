#pragma once

#include "wire/events/EventTable.h"

#include <stdexcept>
#include <string>

namespace kelutv::wire {

/** Why a file describes no events: `FILE:LINE: what is wrong and what is allowed`, or why it cannot be read. */
class EventFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/** The events of a file of the form of `catalogue/events.md`. @throws EventFileError */
EventTable readEventFile(const std::string& path);

/** The events that a text of this form describes. @throws LineError */
EventTable readEvents(const std::string& text);

} // namespace kelutv::wire
