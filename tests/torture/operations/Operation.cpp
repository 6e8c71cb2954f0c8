#include "torture/operations/Operation.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

namespace kelutv::test {

void Outcome::add(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(mText.data() + mLength, mText.size() - mLength, format, arguments);
    va_end(arguments);
    mLength = std::min(mLength + static_cast<std::size_t>(std::max(length, 0)), mText.size() - 1);
}

} // namespace kelutv::test
