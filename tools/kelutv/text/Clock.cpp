#include "tools/kelutv/text/Clock.h"

#include <ctime>

namespace kelutv::tool {

std::string textOfNow() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    ::gmtime_r(&now, &parts);
    char text[32];
    return {text, std::strftime(text, sizeof(text), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

} // namespace kelutv::tool
