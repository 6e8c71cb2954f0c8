#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelutv::wire {

/** How much messages show of a word, and of a path or a whole message that has words in it. */
constexpr std::size_t kMostOfWord = 80;
constexpr std::size_t kMostOfPath = 4096;

/**
 * What a message shows of a text that somebody gave: at most so many bytes of it, and `...` for what is left out.
 *
 * Control characters and bytes that are not UTF-8 are `\x1f`, so that no text does anything to a terminal.
 */
std::string shown(std::string_view text, std::size_t most = kMostOfWord);

} // namespace kelutv::wire
