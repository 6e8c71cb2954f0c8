#pragma once

#include <string>

namespace kelutv::wire {

/**
 * Sixteen hexadecimal digits that are the same for two programs whose commands and items, and how requests and replies
 * of these are laid out and named, are the same. Not a proof: whoever wants to can make two interfaces agree in it.
 */
std::string interfaceFingerprint();

} // namespace kelutv::wire
