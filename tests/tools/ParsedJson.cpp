#include "tools/ParsedJson.h"

#include <nlohmann/json.hpp>

namespace kelutv::test {

namespace {

tool::Json plainValueOf(const nlohmann::json& document) {
    if (document.is_boolean()) {
        return document.get<bool>();
    }
    if (document.is_number_integer()) {
        return document.get<std::int64_t>();
    }
    if (document.is_number()) {
        return document.get<double>();
    }
    return document.is_string() ? tool::Json(document.get<std::string>()) : tool::Json();
}

tool::Json valueOf(const nlohmann::json& document) {
    if (document.is_array()) {
        tool::Json list = tool::Json::array();
        for (const nlohmann::json& entry : document) {
            list.add(valueOf(entry));
        }
        return list;
    }
    if (document.is_object()) {
        tool::Json object = tool::Json::object();
        for (const auto& [name, member] : document.items()) {
            object[name] = valueOf(member);
        }
        return object;
    }
    return plainValueOf(document);
}

} // namespace

tool::Json parsedJson(const std::string& text) { return valueOf(nlohmann::json::parse(text)); }

} // namespace kelutv::test
