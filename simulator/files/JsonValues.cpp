#include "simulator/files/JsonValues.h"

#include "simulator/files/JsonText.h"
#include "wire/text/Numbers.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <string_view>

namespace kelutv::simulator {

namespace {

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

std::string jsonOf(double real) {
    if (std::isfinite(real)) {
        return jsonNumber(real);
    }
    return jsonObject({{"real", jsonString(std::isnan(real) ? "nan" : real > 0 ? "inf" : "-inf")}});
}

double unusualReal(const JsonNode& node) {
    using Limits = std::numeric_limits<double>;
    const std::string text = node.text();
    if (text != "nan" && text != "inf" && text != "-inf") {
        node.fail("nan, inf or -inf is needed, not " + node.shown());
    }
    return text == "nan" ? Limits::quiet_NaN() : text == "inf" ? Limits::infinity() : -Limits::infinity();
}

std::string jsonOf(const wire::Value& value) {
    if (const auto* const number = std::get_if<std::int32_t>(&value)) {
        return std::to_string(*number);
    }
    if (const auto* const real = std::get_if<double>(&value)) {
        return jsonOf(*real);
    }
    const auto& text = std::get<std::string>(value);
    return isUtf8(text) ? jsonString(text) : jsonObject({{"hex", jsonString(hexOf(text))}});
}

wire::Value valueOf(const JsonNode& node) {
    if (node.isObject()) {
        node.membersOf({"hex", "real"});
        return node.has("hex") ? wire::Value(bytesOf(node.at("hex"))) : wire::Value(unusualReal(node.at("real")));
    }
    if (node.isText()) {
        return node.text();
    }
    return node.isReal() ? wire::Value(node.real()) : wire::Value(node.number());
}

} // namespace

std::string jsonOf(const wire::Values& values) {
    std::vector<std::string> list;
    for (const wire::Value& value : values) {
        list.push_back(jsonOf(value));
    }
    return jsonList(list);
}

wire::Values readValues(const JsonNode& node) {
    wire::Values values;
    for (const JsonNode& element : node.elements()) {
        values.push_back(valueOf(element));
    }
    return values;
}

} // namespace kelutv::simulator
