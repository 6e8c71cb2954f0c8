#pragma once

#include "tools/kelutv/compliance/results/Run.h"
#include "tools/kelutv/output/Json.h"

#include <string>

namespace kelutv::tool::compliance {

/** Of a request or a reply that is longer, a report keeps this many bytes, and how many there were. */
constexpr std::size_t kMostBytesKept = 4096;

/** One check as it stands in a report. */
Json documentOf(const CheckResult& result);

/** The report as a JSON text, a line for each check. What was exchanged in checks that passed is not kept. */
std::string textOf(const Run& run);

/**
 * Reads such a text; members that it does not know are passed over.
 *
 * @param file what messages call it
 * @throws UsageError what is wrong, where, and what is allowed
 */
Run runOf(const std::string& text, const std::string& file);

/** That of a file, `-` for standard input. @throws UsageError as above, and when it cannot be read */
Run runIn(const std::string& path);

} // namespace kelutv::tool::compliance
