#include "tools/kelutv/snapshot/Snapshot.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/output/Errors.h"
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

/** Reads the members of one object of the file. */
class Members {
public:
    Members(const Json& object, std::string place) : mObject(object), mPlace(std::move(place)) {
        require(object.isObject(), "is no object");
    }

    const Json& member(const char* name) const {
        const Json* const found = mObject.find(name);
        require(found != nullptr, std::string("lacks '") + name + '\'');
        return *found;
    }

    std::string text(const char* name) const {
        const Json& value = member(name);
        require(value.isText(), std::string("'") + name + "' is no text");
        return value.asText();
    }

    const Json& list(const char* name) const {
        const Json& value = member(name);
        require(value.isArray(), std::string("'") + name + "' is no list");
        return value;
    }

    const Json& result() const {
        const Json& value = member("result");
        require(value.isInteger() || value.isNull(), "'result' is neither an integer nor null");
        return value;
    }

    double number(const char* name) const {
        const Json& value = member(name);
        require(value.isNumber(), std::string("'") + name + "' is no number");
        return value.asReal();
    }

    void require(bool holds, const std::string& complaint) const {
        if (!holds) {
            throw UsageError(mPlace + ": " + complaint);
        }
    }

private:
    const Json& mObject;
    std::string mPlace;
};

const wire::Function& functionOf(const Members& members) {
    const std::string name = members.text("function");
    const std::vector<const wire::Function*> named = wire::functionsNamed(name);
    members.require(named.size() == 1 && named.front()->effect.kind == wire::EffectKind::Read,
                    "'" + wire::shown(name) + "' is no operation that reads");
    return *named.front();
}

HeldState heldStateOf(const Json& entry, const std::string& place) {
    const Members members(entry, place);
    HeldState held{members.text("state"),
                   members.list("values"),
                   {&functionOf(members), {}},
                   members.result(),
                   members.number("seconds")};
    const Members arguments(members.member("arguments"), place + ", arguments");
    for (const wire::Parameter* const parameter : givenParameters(*held.reading.function)) {
        held.reading.arguments.push_back(arguments.text(parameter->name));
    }
    return held;
}

MissingState missingStateOf(const Json& entry, const std::string& place) {
    const Members members(entry, place);
    return {members.text("state"), members.text("function"), members.text("reason"), members.result()};
}

template <typename State>
std::vector<State> statesOf(const Members& document, const char* list, const std::string& file,
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
    return std::string("{\n  \"format\": \"") + kFormat +
           "\",\n  \"library\": \"" KELUTV_VERSION "\",\n  \"taken\": " + Json(snapshot.taken).dump() +
           ",\n  \"readable\": " + std::to_string(snapshot.readable()) +
           ",\n  \"held\": " + std::to_string(snapshot.held.size()) + ",\n  \"states\": " + listOf(snapshot.held) +
           ",\n  \"missing\": " + listOf(snapshot.missing) + "\n}\n";
}

Snapshot snapshotOf(const std::string& text, const std::string& file) {
    Json document;
    try {
        document = Json::parsed(text);
    } catch (const JsonError& error) {
        throw UsageError(file + ": " + error.what());
    }
    const Members members(document, file);
    const std::string format = members.text("format");
    members.require(format == kFormat, "the format is '" + wire::shown(format) + "', not '" + kFormat + "'");
    Snapshot snapshot{members.text("taken"), statesOf(members, "states", file, heldStateOf),
                      statesOf(members, "missing", file, missingStateOf)};
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
