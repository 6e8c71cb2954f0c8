#include "tools/kelutv/newservice/Templates.h"

namespace kelutv::tool {

std::string filled(std::string text, const std::string& name, const std::string& value) {
    const std::string place = "{{" + name + "}}";
    for (std::size_t at = text.find(place); at != std::string::npos; at = text.find(place, at + value.size())) {
        text.replace(at, place.size(), value);
    }
    return text;
}

} // namespace kelutv::tool
