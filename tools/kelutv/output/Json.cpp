#include "tools/kelutv/output/Json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <stdexcept>

namespace kelutv::tool {

namespace {

using Document = nlohmann::ordered_json;

/** Deeper than any document of the tool. */
constexpr int kMostDepth = 64;

/** The value of a variant that is to be of one kind. */
template <typename Kind, typename Value> auto& required(Value& value, const char* kind) {
    if (auto* const found = std::get_if<Kind>(&value)) {
        return *found;
    }
    throw std::logic_error(std::string("the value is not ") + kind);
}

Document plainDocumentOf(const Json& value) {
    if (value.isBoolean()) {
        return value.asBoolean();
    }
    if (value.isInteger()) {
        return value.asInteger();
    }
    if (value.isNumber()) {
        return value.asReal();
    }
    return value.isText() ? Document(value.asText()) : Document();
}

Document documentOf(const Json& value) {
    if (value.isArray()) {
        Document document = Document::array();
        for (const Json& entry : value.entries()) {
            document.push_back(documentOf(entry));
        }
        return document;
    }
    if (value.isObject()) {
        Document document = Document::object();
        for (const auto& [name, member] : value.members()) {
            document[name] = documentOf(member);
        }
        return document;
    }
    return plainDocumentOf(value);
}

/** How deep objects and lists of a text are nested. */
int depthOf(const std::string& text) {
    int depth = 0;
    int most = 0;
    bool isInText = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char each = text[at];
        if (each == '"') {
            isInText = !isInText;
        } else if (isInText) {
            at += each == '\\' ? 1 : 0;
        } else if (each == '[' || each == '{') {
            most = std::max(most, ++depth);
        } else if (each == ']' || each == '}') {
            --depth;
        }
    }
    return most;
}

Json plainValueOf(const Document& document) {
    if (document.is_boolean()) {
        return document.get<bool>();
    }
    if (document.is_number_integer() && (!document.is_number_unsigned() || document.get<std::int64_t>() >= 0)) {
        return document.get<std::int64_t>();
    }
    if (document.is_number()) {
        return document.get<double>();
    }
    return document.is_string() ? Json(document.get<std::string>()) : Json();
}

Json valueOf(const Document& document) {
    if (document.is_array()) {
        Json value = Json::array();
        for (const Document& entry : document) {
            value.add(valueOf(entry));
        }
        return value;
    }
    if (document.is_object()) {
        Json value = Json::object();
        for (const auto& [name, member] : document.items()) {
            value[name] = valueOf(member);
        }
        return value;
    }
    return plainValueOf(document);
}

} // namespace

Json Json::array(Entries entries) {
    Json value;
    value.mValue = std::move(entries);
    return value;
}

Json Json::parsed(const std::string& text) {
    if (depthOf(text) > kMostDepth) {
        throw JsonError("objects and lists are nested more than " + std::to_string(kMostDepth) + " deep");
    }
    try {
        return valueOf(Document::parse(text));
    } catch (const Document::exception& error) {
        const std::string message = error.what();
        // Its own number and kind stand in brackets before what people read.
        const std::size_t end = message.find("] ");
        throw JsonError("no JSON: " + (end == std::string::npos ? message : message.substr(end + 2)));
    }
}

bool Json::asBoolean() const { return required<bool>(mValue, "a flag"); }

std::int64_t Json::asInteger() const {
    const auto* const integer = std::get_if<std::int64_t>(&mValue);
    return integer != nullptr ? *integer : static_cast<std::int64_t>(asReal());
}

double Json::asReal() const {
    const auto* const integer = std::get_if<std::int64_t>(&mValue);
    return integer != nullptr ? static_cast<double>(*integer) : required<double>(mValue, "a number");
}

const std::string& Json::asText() const { return required<std::string>(mValue, "a text"); }

const Json::Entries& Json::entries() const { return required<Entries>(mValue, "a list"); }

void Json::add(Json entry) { required<Entries>(mValue, "a list").push_back(std::move(entry)); }

const Json::Members& Json::members() const { return required<Members>(mValue, "an object"); }

const Json* Json::find(const std::string& name) const {
    const Members& all = members();
    const auto found = std::find_if(all.begin(), all.end(), [&name](const Member& each) { return each.first == name; });
    return found == all.end() ? nullptr : &found->second;
}

const Json& Json::at(const std::string& name) const {
    if (const Json* const member = find(name)) {
        return *member;
    }
    throw std::logic_error("the object has no member " + name);
}

Json& Json::operator[](const std::string& name) {
    if (isNull()) {
        mValue = Members();
    }
    auto& all = required<Members>(mValue, "an object");
    const auto found = std::find_if(all.begin(), all.end(), [&name](const Member& each) { return each.first == name; });
    return found == all.end() ? all.emplace_back(name, Json()).second : found->second;
}

std::string Json::dump() const { return documentOf(*this).dump(-1, ' ', false, Document::error_handler_t::replace); }

} // namespace kelutv::tool
