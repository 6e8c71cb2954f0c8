#pragma once

#include <cstddef>
#include <string>

namespace android {

/** UTF-8 to UTF-16; a byte that starts no valid sequence becomes U+FFFD. */
std::u16string utf8ToUtf16(const char* text, std::size_t length);

/** UTF-16 to UTF-8; a surrogate without its pair becomes U+FFFD. */
std::string utf16ToUtf8(const char16_t* text, std::size_t length);

/**
 * A text of another process for a line of the log, in UTF-8: what a terminal obeys instead of showing it stands as
 * \uXXXX, a backslash as two, and of more than 128 units the first 128, with "..." behind them.
 */
std::string printable(const char16_t* text, std::size_t length);

} // namespace android
