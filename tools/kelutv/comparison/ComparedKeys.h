#pragma once

#include "tools/kelutv/comparison/Happening.h"
#include "wire/text/Pattern.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** What happenings have in common that stand for each other. */
struct ComparedKeys {
    /** The same where what was sent, or the event, is alike, whatever was answered. */
    std::string request;
    /** The same where what was answered is alike, too. */
    std::string whole;
};

/** By all their bytes. */
ComparedKeys keysOf(const Happening& happening);

/**
 * By their values but for those that are passed over; by the bytes of the request or the reply where it has no such
 * value.
 *
 * @param subject the same for all happenings of which values can be compared
 * @param ignored names of values
 */
ComparedKeys keysOf(const Happening& happening, const std::string& subject, const std::vector<wire::Pattern>& ignored);

} // namespace kelutv::tool
