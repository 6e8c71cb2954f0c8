#include "tools/kelutv/text/Nearest.h"

#include "wire/text/Nearest.h"

namespace kelutv::tool {

std::string nearestHint(const std::string& written, const std::vector<std::string>& names) {
    std::string hint;
    for (const std::string& name : wire::nearestNames(written, names)) {
        hint += (hint.empty() ? "; nearest: " : ", ") + name;
    }
    return hint;
}

} // namespace kelutv::tool
