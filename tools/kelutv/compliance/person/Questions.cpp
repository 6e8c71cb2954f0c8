#include "tools/kelutv/compliance/person/Questions.h"

#include "tools/kelutv/output/Streams.h"

#include <unistd.h>

#include <cstdio>
#include <iostream>

namespace kelutv::tool::compliance {

Said askPerson(const std::string& question) {
    // A line of progress may stand there.
    const char* const beginning = ::isatty(::fileno(ownError())) == 1 ? "\r\x1b[K" : "";
    for (;;) {
        std::fprintf(ownError(), "%s%s [y/n/s] ", beginning, question.c_str());
        std::string line;
        if (!std::getline(std::cin, line) || line == "s") {
            return Said::skip;
        }
        if (line == "y" || line == "n") {
            return line == "y" ? Said::yes : Said::no;
        }
        std::fputs("y is yes, n is no, s skips this check.\n", ownError());
    }
}

} // namespace kelutv::tool::compliance
