#include "tools/kelutv/snapshot/Snapshot.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/JsonMembers.h"
#include "tools/kelutv/text/InputFile.h"
#include "wire/text/Shown.h"

#include <set>

namespace kelutv::tool {

namespace {

constexpr char kFormat[] = "kelutv snapshot 1";

Json argumentsOf(const Reading& reading) {
    Json arguments = Json::object();
    std::size_t index = 0;
    for (const wire::Parameter* const parameter : givenParameters(*reading.function)) {
        arguments[parameter->name] = reading.arguments[index++];
    }
    return arguments;
}

std::string lineOf(const HeldState& held) {
    return Json{{"state", held.state},
                {"values", held.values},
                {"function", held.reading.function->name},
                {"arguments", argumentsOf(held.reading)},
                {"result", held.result},
                {"seconds", held.seconds}}
        .dump();
}

std::string lineOf(const MissingState& missing) {
    return Json{{"state", missing.state},
                {"function", missing.function},
                {"reason", missing.reason},
                {"result", missing.result}}
        .dump();
}

template <typename State> std::string listOf(const std::vector<State>& states) {
    std::string text = "[";
    const char* separator = "\n    ";
    for (const State& state : states) {
        text += separator + lineOf(state);
        separator = ",\n    ";
    }
    return text + (states.empty() ? "]" : "\n  ]");
}

const Json& resultOf(const JsonMembers& members) {
    const Json& value = members.member("result");
    members.require(value.isInteger() || value.isNull(), "'result' is neither an integer nor null");
    return value;
}

const wire::Function& functionOf(const JsonMembers& members) {
    const std::string name = members.text("function");
    const std::vector<const wire::Function*> named = wire::functionsNamed(name);
    members.require(named.size() == 1 && named.front()->effect.kind == wire::EffectKind::Read,
                    "'" + wire::shown(name) + "' is no operation that reads");
    return *named.front();
}

HeldState heldStateOf(const Json& entry, const std::string& place) {
    const JsonMembers members(entry, place);
    HeldState held{members.text("state"),
                   members.list("values"),
                   {&functionOf(members), {}},
                   resultOf(members),
                   members.number("seconds")};
    const JsonMembers arguments(members.member("arguments"), place + ", arguments");
    for (const wire::Parameter* const parameter : givenParameters(*held.reading.function)) {
        held.reading.arguments.push_back(arguments.text(parameter->name));
    }
    return held;
}

MissingState missingStateOf(const Json& entry, const std::string& place) {
    const JsonMembers members(entry, place);
    return {members.text("state"), members.text("function"), members.text("reason"), resultOf(members)};
}

template <typename State>
std::vector<State> statesOf(const JsonMembers& document, const char* list, const std::string& file,
                            State (*read)(const Json& entry, const std::string& place)) {
    std::vector<State> states;
    std::set<std::string> names;
    for (const Json& entry : document.list(list).entries()) {
        const std::string place = file + ": " + list + '[' + std::to_string(states.size()) + ']';
        states.push_back(read(entry, place));
        document.require(names.insert(states.back().state).second,
                         std::string(list) + " has " + wire::shown(states.back().state) + " twice");
    }
    return states;
}

} // namespace

std::string textOf(const Snapshot& snapshot) {
    return std::string("{\n  \"format\": \"") + kFormat + "\",\n" +
           (snapshot.purpose.empty() ? "" : "  \"purpose\": " + Json(snapshot.purpose).dump() + ",\n") +
           "  \"library\": \"" KELUTV_VERSION "\",\n  \"taken\": " + Json(snapshot.taken).dump() +
           ",\n  \"readable\": " + std::to_string(snapshot.readable()) +
           ",\n  \"held\": " + std::to_string(snapshot.held.size()) + ",\n  \"states\": " + listOf(snapshot.held) +
           ",\n  \"missing\": " + listOf(snapshot.missing) + "\n}\n";
}

Snapshot snapshotOf(const std::string& text, const std::string& file) {
    const Json document = jsonOfFile(text, file);
    const JsonMembers members(document, file);
    const std::string format = members.text("format");
    members.require(format == kFormat, "the format is '" + wire::shown(format) + "', not '" + kFormat + "'");
    Snapshot snapshot{members.text("taken"), statesOf(members, "states", file, heldStateOf),
                      statesOf(members, "missing", file, missingStateOf)};
    if (members.optional("purpose") != nullptr) {
        snapshot.purpose = members.text("purpose");
    }
    members.require(members.number("readable") == static_cast<double>(snapshot.readable()),
                    "'readable' is not the number of states, held and missing: the file is not whole");
    return snapshot;
}

Snapshot snapshotIn(const std::string& path) {
    const Bytes bytes = bytesOfInput(path);
    return snapshotOf({bytes.begin(), bytes.end()},
                      path == "-" ? "standard input" : wire::shown(path, wire::kMostOfPath));
}

} // namespace kelutv::tool
