#pragma once

#include "tools/kelutv/comparison/Happening.h"
#include "tools/kelutv/output/Json.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kelutv::tool {

/** A value with a name that no other one of its place has. */
struct Part {
    std::string name;
    NamedValue value;
};

/** The values of one place; `vol 2` is the second one of a name. */
std::vector<Part> partsOf(const std::vector<NamedValue>& values);

std::vector<NamedValue> eventFieldsOf(const Happening& event);

/** A value of a block, and what it is called. @{ */
NamedValue elementOf(const NamedValue& block, std::size_t index);
std::string elementName(const std::string& block, std::size_t index);
/** @} */

std::string textIn(const NamedValue& value);

/** A value that two happenings of one kind do not have alike. */
struct ValueDifference {
    /** Where it stands: `request`, `reply`, `event` or `duration`. */
    std::string place;
    /** `vol`, `result`, `status`, `data[3]`; `value` for one without a name. */
    std::string name;
    /** Null where one does not have it. */
    Json first;
    Json second;
    /** The same for people; empty where one does not have it. */
    std::string firstText;
    std::string secondText;
};

/**
 * What two happenings do not have alike, by name: arguments, then results. Bytes that differ and mean nothing come as
 * `byte N`, so that there is a difference wherever the bytes are not the same, that of the token aside, which is
 * `token`.
 */
std::vector<ValueDifference> differencesOf(const Happening& first, const Happening& second);

/** `vol 35 -> 36`, apart by semicolons. */
std::string textOf(const std::vector<ValueDifference>& differences);

/** A list of `{"in": ..., "name": ..., "first": ..., "second": ...}`. */
Json documentOf(const std::vector<ValueDifference>& differences);

} // namespace kelutv::tool
