#pragma once

#include <cstdint>
#include <string>

namespace kelutv::tool {

/**
 * Stores the tool's own function for a callback type, which prints its arguments to standard output: `event
 * 0x10002 01000000` and `vbi 2 0a0b`. A block of more than 64 bytes is cut.
 */
void storePrinter(const std::string& type, std::uint8_t* to);

/**
 * Whether these functions print documents from now on: `{"callback": "event", "event": 65538, "payload": "01000000"}`
 * and
 * `{"callback": "vbi", "type": 2, "payload": "0a0b"}`, with the whole block.
 */
void printCallbacksAsJson(bool asJson);

} // namespace kelutv::tool
