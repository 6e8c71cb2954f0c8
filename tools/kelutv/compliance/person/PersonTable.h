#pragma once

#include "wire/Rows.h"

#include <cstdint>

namespace kelutv::tool::compliance {

/** Something that is set, and what a person is asked then. */
struct SeenCheck {
    /** Behind the name of the function in the identifier: `white`. */
    const char* aspect;
    /** What sets it, by its short name. */
    const char* setter;
    /** The key under which it is read; null without one. */
    const char* key;
    std::int32_t value;
    const char* question;
};

/** Something that a person does, and the event that tells of it. */
struct DoneCheck {
    /** Behind the module in the identifier: `hdmi1Plugged`. */
    const char* aspect;
    const char* module;
    const char* request;
    const char* event;
    /** The words that its payload begins with. */
    wire::Rows<std::int32_t> words;
};

wire::Rows<SeenCheck> seenChecks();
wire::Rows<DoneCheck> doneChecks();

} // namespace kelutv::tool::compliance
