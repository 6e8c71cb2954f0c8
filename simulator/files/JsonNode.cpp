// All that includes the headers of the JSON library, which are slow to compile.
#include "simulator/files/JsonNode.h"

#include "simulator/files/JsonText.h"

#include "wire/text/Join.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <set>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kLongestShown = 60;

constexpr std::size_t kLongestReason = 300;

/** Deeper than everything that is read here. */
constexpr int kDeepest = 32;

/** Refuses what the parser takes: a member that an object has twice, of which it would keep the last, and any depth. */
class ParseGuard {
public:
    explicit ParseGuard(const std::string& file) : mFile(file) {}

    bool see(int depth, nlohmann::json::parse_event_t event, const nlohmann::json& parsed) {
        using Event = nlohmann::json::parse_event_t;
        if (depth > kDeepest) {
            throw ConfigurationError(mFile + ": objects and lists are nested more than " + std::to_string(kDeepest) +
                                     " deep");
        }
        if (event == Event::object_start) {
            mNames.emplace_back();
        } else if (event == Event::object_end) {
            mNames.pop_back();
        } else if (event == Event::key && !mNames.back().insert(parsed.get<std::string>()).second) {
            throw ConfigurationError(mFile + ": '" + wire::shown(parsed.get<std::string>()) +
                                     "' is given twice in one object");
        }
        return true;
    }

private:
    const std::string& mFile;
    std::vector<std::set<std::string>> mNames;
};

/** Without the number in brackets that messages of the parser begin with. */
std::string reasonOf(const nlohmann::json::exception& error) {
    const std::string reason = error.what();
    return wire::shown(reason.substr(reason.find("] ") + 2), kLongestReason);
}

nlohmann::json parsed(const std::string& text, const std::string& file) {
    ParseGuard guard(file);
    try {
        return nlohmann::json::parse(
            text, [&guard](int depth, nlohmann::json::parse_event_t event, const nlohmann::json& parsed) {
                return guard.see(depth, event, parsed);
            });
    } catch (const nlohmann::json::parse_error& error) {
        throw ConfigurationError(file + ": this is not JSON: " + reasonOf(error));
    } catch (const nlohmann::json::out_of_range& error) {
        throw ConfigurationError(file + ": this cannot be read: " + reasonOf(error));
    }
}

/** Puts the parts, each but the first behind a comma, between the brackets. */
std::string enclosed(char open, const std::vector<std::string>& parts, char close) {
    std::string text(1, open);
    for (const std::string& part : parts) {
        text += (text.size() == 1 ? "" : ",") + part;
    }
    return text + close;
}

} // namespace

bool isUtf8(const std::string& text) {
    try {
        jsonString(text);
        return true;
    } catch (const nlohmann::json::type_error&) {
        return false;
    }
}

std::string jsonString(const std::string& text) { return nlohmann::json(text).dump(); }

std::string jsonNumber(double number) { return nlohmann::json(number).dump(); }

std::string jsonTruth(bool truth) { return truth ? "true" : "false"; }

std::string jsonList(const std::vector<std::string>& elements) { return enclosed('[', elements, ']'); }

std::string jsonObject(const std::map<std::string, std::string>& members) {
    std::vector<std::string> parts;
    for (const auto& [name, value] : members) {
        parts.push_back(jsonString(name) + ':' + value);
    }
    return enclosed('{', parts, '}');
}

JsonFile::JsonFile(const std::string& text, std::string name)
    : mContent(std::make_unique<nlohmann::json>(parsed(text, name))), mName(std::move(name)) {}

JsonFile::~JsonFile() = default;

JsonNode JsonFile::root() const { return {*mContent, mName, ""}; }

void JsonFile::layOver(const JsonFile& base, const std::vector<std::string>& wholes) {
    if (!mContent->is_object()) {
        return;
    }
    nlohmann::json merged = *base.mContent;
    for (const std::string& whole : wholes) {
        if (mContent->contains(whole) && (*mContent)[whole].is_object()) {
            for (const auto& member : (*mContent)[whole].items()) {
                merged[whole].erase(member.key());
            }
        }
    }
    merged.merge_patch(*mContent);
    *mContent = std::move(merged);
}

bool JsonNode::isObject() const { return mValue->is_object(); }

bool JsonNode::isText() const { return mValue->is_string(); }

bool JsonNode::isReal() const { return mValue->is_number_float(); }

std::vector<std::pair<std::string, JsonNode>> JsonNode::members() const {
    if (!mValue->is_object()) {
        fail("an object is needed, not " + shown());
    }
    std::vector<std::pair<std::string, JsonNode>> members;
    for (const auto& [name, value] : mValue->items()) {
        members.emplace_back(name, child(value, name));
    }
    return members;
}

std::vector<std::pair<std::string, JsonNode>> JsonNode::membersOf(const std::vector<std::string>& allowed) const {
    auto all = members();
    for (const auto& [name, node] : all) {
        if (std::find(allowed.begin(), allowed.end(), name) == allowed.end()) {
            node.fail("there is no '" + wire::shown(name) + "' here, only " + wire::joined(allowed) +
                      wire::nearestHint(name, allowed));
        }
    }
    return all;
}

bool JsonNode::has(const std::string& name) const { return mValue->is_object() && mValue->contains(name); }

JsonNode JsonNode::at(const std::string& name) const {
    if (!has(name)) {
        fail("'" + wire::shown(name) + "' is missing");
    }
    return child((*mValue)[name], name);
}

std::vector<JsonNode> JsonNode::elements() const {
    if (!mValue->is_array()) {
        fail("a list is needed, not " + shown());
    }
    std::vector<JsonNode> elements;
    for (std::size_t i = 0; i < mValue->size(); ++i) {
        elements.push_back(child((*mValue)[i], std::to_string(i)));
    }
    return elements;
}

std::vector<JsonNode> JsonNode::listed() const {
    return mValue->is_array() ? elements() : std::vector<JsonNode>{*this};
}

std::int32_t JsonNode::number() const {
    using Limits = std::numeric_limits<std::int32_t>;
    // A number beyond 63 bits is read as unsigned and is not an int64.
    const bool fits = mValue->is_number_integer() &&
                      (!mValue->is_number_unsigned() || mValue->get<std::uint64_t>() <= Limits::max()) &&
                      mValue->get<std::int64_t>() >= Limits::min() && mValue->get<std::int64_t>() <= Limits::max();
    if (!fits) {
        fail("an integer of 32 bits is needed, not " + shown());
    }
    return mValue->get<std::int32_t>();
}

double JsonNode::real() const {
    if (!mValue->is_number()) {
        fail("a number is needed, not " + shown());
    }
    return mValue->get<double>();
}

std::string JsonNode::text() const {
    if (!mValue->is_string()) {
        fail("a text is needed, not " + shown());
    }
    return mValue->get<std::string>();
}

bool JsonNode::truth() const {
    if (!mValue->is_boolean()) {
        fail("true or false is needed, not " + shown());
    }
    return mValue->get<bool>();
}

std::string JsonNode::shown() const {
    const std::string text = mValue->dump();
    return wire::shown(text, kLongestShown);
}

void JsonNode::fail(const std::string& what) const {
    throw ConfigurationError(mFile + (mPath.empty() ? "" : ": " + mPath) + ": " + what);
}

JsonNode JsonNode::child(const nlohmann::json& value, const std::string& step) const {
    return {value, mFile, mPath + '/' + wire::shown(step)};
}

} // namespace kelutv::simulator
