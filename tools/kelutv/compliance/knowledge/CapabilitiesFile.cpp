#include "tools/kelutv/compliance/knowledge/Capabilities.h"
#include "tools/kelutv/output/JsonMembers.h"
#include "tools/kelutv/text/InputFile.h"
#include "wire/text/Shown.h"

namespace kelutv::tool::compliance {

namespace {

constexpr char kCapabilitiesFormat[] = "kelutv capabilities 1";

std::string listText(const Capabilities::Names& names) {
    std::string text = "{";
    const char* separator = "\n    ";
    for (const auto& [name, isThere] : names) {
        text += separator + Json(name).dump() + ": " + Json(isThere).dump();
        separator = ",\n    ";
    }
    return text + (names.empty() ? "}" : "\n  }");
}

/** A list that is not there names nothing. */
Capabilities::Names namesIn(const JsonMembers& document, const std::string& list) {
    Capabilities::Names names;
    const Json* const members = document.optional(list);
    if (members == nullptr) {
        return names;
    }
    document.require(members->isObject(), '\'' + list + "' is no object");
    for (const auto& [name, isThere] : members->members()) {
        document.require(isThere.isBoolean(),
                         list + ": '" + wire::shown(name) + "' is neither true, for what there is, nor false");
        names[name] = isThere.asBoolean();
    }
    return names;
}

} // namespace

std::string capabilitiesText(const Capabilities& capabilities) {
    return "{\n  \"format\": " + Json(kCapabilitiesFormat).dump() +
           ",\n  \"modules\": " + listText(capabilities.modules) +
           ",\n  \"commands\": " + listText(capabilities.commands) + ",\n  \"keys\": " + listText(capabilities.keys) +
           ",\n  \"events\": " + listText(capabilities.events) + "\n}\n";
}

Capabilities capabilitiesOf(const std::string& text, const std::string& file) {
    const Json document = jsonOfFile(text, file);
    const JsonMembers members(document, file);
    const std::string& format = members.text("format");
    members.require(format == kCapabilitiesFormat,
                    "the format is '" + wire::shown(format) + "', not '" + kCapabilitiesFormat + "'");
    return {namesIn(members, "modules"), namesIn(members, "commands"), namesIn(members, "keys"),
            namesIn(members, "events")};
}

Capabilities capabilitiesIn(const std::string& path) {
    if (path.empty()) {
        return {};
    }
    const Bytes bytes = bytesOfInput(path);
    return capabilitiesOf({bytes.begin(), bytes.end()},
                          path == "-" ? "standard input" : wire::shown(path, wire::kMostOfPath));
}

} // namespace kelutv::tool::compliance
