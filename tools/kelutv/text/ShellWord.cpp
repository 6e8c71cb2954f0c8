#include "tools/kelutv/text/ShellWord.h"

namespace kelutv::tool {

std::string shellWord(const std::string& word) {
    const bool isPlain = !word.empty() && word.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                                                 "0123456789_-+=.,:/@") == std::string::npos;
    if (isPlain) {
        return word;
    }
    std::string quoted = "'";
    for (const char each : word) {
        quoted += each == '\'' ? "'\\''" : std::string(1, each);
    }
    return quoted + '\'';
}

} // namespace kelutv::tool
