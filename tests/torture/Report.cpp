#include "torture/Report.h"

#include <cstdarg>
#include <cstdio>

namespace kelutv::test {

void report(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::fputs("torture: ", stdout);
    std::vprintf(format, arguments);
    std::fputc('\n', stdout);
    va_end(arguments);
}

} // namespace kelutv::test
