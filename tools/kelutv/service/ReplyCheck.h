#pragma once

#include "tools/interposition/Tap.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** Why the service's answer is no success. */
struct ReplyFailure {
    std::string text;
    /** The service's result, when that is what says so. */
    std::optional<std::int32_t> result;
};

/**
 * What is wrong with the answers to these requests: the first that has no result, a result that says so, or that is not
 * what the catalogue says of such a request. Those that did not get through are passed over.
 *
 * @param isValue the result word is what is read, and none of its values says that something failed
 */
std::optional<ReplyFailure> failureIn(const std::vector<interposition::Transaction>& transactions, bool isValue);

} // namespace kelutv::tool
