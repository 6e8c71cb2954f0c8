#pragma once

#include "wire/events/Event.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::wire {

/** One field of a payload that was received, or a word behind the fields. */
struct PayloadValue {
    /** Null for a word that has no name. */
    const char* name;
    Encoding encoding;
    const Enumeration* names;
    Value value;
    /** Where it begins in the payload, and how much of that it takes, with the end of a text; in bytes. */
    std::size_t offset = 0;
    std::size_t size = 0;
};

/**
 * What a payload says: its fields as far as it has them, and what is left as int32 words if it is a row of such.
 *
 * @param event whose payload it is; null for one that is not known
 */
std::vector<PayloadValue> readPayload(const Event* event, const std::vector<std::uint8_t>& bytes);

/** A payload with these values: integers as int32 words, texts with a zero at the end. */
std::string payloadOf(const Values& values);

} // namespace kelutv::wire
