#include "simulator/files/JsonValues.h"

#include "wire/text/Numbers.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdio>
#include <limits>
#include <string_view>

namespace kelutv::simulator {

namespace {

using nlohmann::json;

std::string hexOf(const std::string& bytes) {
    std::string hex;
    for (const char byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof(digits), "%02x", static_cast<unsigned int>(static_cast<unsigned char>(byte)));
        hex += digits;
    }
    return hex;
}

std::string bytesOf(const JsonNode& node) {
    const std::string hex = node.text();
    std::string bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        const auto byte = wire::wholeNumber<unsigned char>(std::string_view(hex).substr(i, 2), 16);
        if (!byte || i + 1 == hex.size()) {
            node.fail("an even number of hexadecimal digits is needed, not " + node.shown());
        }
        bytes += static_cast<char>(*byte);
    }
    return bytes;
}

json jsonOf(double real) {
    if (std::isfinite(real)) {
        return real;
    }
    return json::object({{"real", std::isnan(real) ? "nan" : real > 0 ? "inf" : "-inf"}});
}

double unusualReal(const JsonNode& node) {
    using Limits = std::numeric_limits<double>;
    const std::string text = node.text();
    if (text != "nan" && text != "inf" && text != "-inf") {
        node.fail("nan, inf or -inf is needed, not " + node.shown());
    }
    return text == "nan" ? Limits::quiet_NaN() : text == "inf" ? Limits::infinity() : -Limits::infinity();
}

json jsonOf(const wire::Value& value) {
    if (const auto* const number = std::get_if<std::int32_t>(&value)) {
        return *number;
    }
    if (const auto* const real = std::get_if<double>(&value)) {
        return jsonOf(*real);
    }
    const auto& text = std::get<std::string>(value);
    return isUtf8(text) ? json(text) : json::object({{"hex", hexOf(text)}});
}

wire::Value valueOf(const JsonNode& node) {
    if (node.value().is_object()) {
        node.membersOf({"hex", "real"});
        return node.has("hex") ? wire::Value(bytesOf(node.at("hex"))) : wire::Value(unusualReal(node.at("real")));
    }
    if (node.value().is_string()) {
        return node.text();
    }
    return node.value().is_number_float() ? wire::Value(node.real()) : wire::Value(node.number());
}

} // namespace

bool isUtf8(const std::string& text) {
    try {
        json(text).dump();
        return true;
    } catch (const json::type_error&) {
        return false;
    }
}

json toJson(const wire::Values& values) {
    json list = json::array();
    for (const wire::Value& value : values) {
        list.push_back(jsonOf(value));
    }
    return list;
}

wire::Values readValues(const JsonNode& node) {
    wire::Values values;
    for (const JsonNode& element : node.elements()) {
        values.push_back(valueOf(element));
    }
    return values;
}

} // namespace kelutv::simulator
