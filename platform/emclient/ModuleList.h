#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace keluem {

/**
 * @name The file beside a subscriber's socket that tells publishers which modules it wants.
 *
 * It holds the module identifiers as 32-bit words and is only ever replaced whole, so a reader sees one list or the
 * next. A subscriber without the file wants nothing.
 * @{
 */

/** Replaces the list of the socket at `socketPath`. Returns 0 or a negative errno value. */
int writeModules(const std::string& socketPath, const std::vector<std::uint32_t>& modules);

/** The list of the socket at `socketPath`, in the order written. Throws std::bad_alloc. */
std::vector<std::uint32_t> readModules(const std::string& socketPath);

/** Removes a socket's entry together with its list. */
void removeSubscriber(const std::string& socketPath);
/** @} */

} // namespace keluem
