#include "tools/kelutv/sim/SimDocument.h"

#include "simulator/control/ControlVerbs.h"
#include "simulator/text/Numbers.h"
#include "simulator/text/Tokenizer.h"
#include "tools/kelutv/text/EnumeratedValue.h"
#include "wire/StateForm.h"
#include "wire/events/Event.h"
#include "wire/events/EventTable.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <sstream>
#include <vector>

namespace kelutv::tool {

namespace {

using simulator::Assignment;
using simulator::Token;
using simulator::Tokens;

constexpr char kOfAnyOtherKey[] = " of any other key: ";

Json linesOf(const std::string& text) {
    Json lines = Json::array();
    std::istringstream rest(text);
    for (std::string line; std::getline(rest, line);) {
        lines.add(line);
    }
    return lines;
}

Json plainValueOf(const Token& token) {
    const std::string text = token.text();
    if (!token.isQuoted()) {
        if (const auto number = simulator::int32Of(text)) {
            return *number;
        }
        if (const auto number = simulator::realOf(text)) {
            return *number;
        }
    }
    return text;
}

/** The parts of a state say which values have names; those behind the last are as it. */
Json valuesOf(const Tokens& tokens, const std::vector<wire::StatePart>& parts) {
    Json values = Json::array();
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        values.add(valueDocument(plainValueOf(tokens[i]), i < parts.size() ? parts[i].names : nullptr));
    }
    return values;
}

std::vector<wire::StatePart> partsOf(const std::string& state, bool ofKeys) {
    const wire::StateKey* const key = wire::findState(state);
    if (key == nullptr) {
        return {};
    }
    const wire::StateForm form = wire::formOf(*key);
    return ofKeys ? form.indexes : form.values;
}

Json numberIn(const std::string& word) {
    const auto number = simulator::int32Of(word);
    return number ? Json(*number) : Json(word);
}

/** What the lines of an answer say, put together. */
class DocumentBuilder {
public:
    explicit DocumentBuilder(const std::string& text) : mDocument{{"ok", true}, {"lines", linesOf(text)}} {
        for (const Json& line : mDocument.at("lines").entries()) {
            mLines.push_back(line.asText());
        }
    }

    Json take() {
        for (const std::string& line : mLines) {
            read(line);
        }
        return std::move(mDocument);
    }

private:
    using Read = void (DocumentBuilder::*)(const std::string& rest);

    void read(const std::string& line) {
        static const std::map<std::string, Read> readers{
            {"plug", &DocumentBuilder::readPlugged},  {"unplug", &DocumentBuilder::readUnplugged},
            {"signal", &DocumentBuilder::readSignal}, {"cec", &DocumentBuilder::readCec},
            {"power", &DocumentBuilder::readPower},   {"fault", &DocumentBuilder::readFault},
            {"reset", &DocumentBuilder::readNothing},
        };
        const std::string verb = line.substr(0, line.find(' '));
        if (const auto reader = readers.find(verb); reader != readers.end()) {
            (this->*reader->second)(line.substr(verb.size() + 1));
        } else if (const std::size_t initial = line.find(kOfAnyOtherKey);
                   line.rfind("# ", 0) == 0 && initial != std::string::npos) {
            readInitial(line.substr(2, initial - 2), line.substr(initial + sizeof(kOfAnyOtherKey) - 1));
        } else {
            const bool isRemark = line.rfind("# ", 0) == 0;
            readState(line.substr(isRemark ? 2 : 0), !isRemark);
        }
    }

    void add(const char* list, Json entry) {
        if (mDocument.find(list) == nullptr) {
            mDocument[list] = Json::array();
        }
        mDocument[list].add(std::move(entry));
    }

    void readNothing(const std::string&) {}

    void readPlugged(const std::string& name) { beginSource(name, true); }
    void readUnplugged(const std::string& name) { beginSource(name, false); }

    void beginSource(const std::string& name, bool plugged) {
        const wire::Enumerator* const source = wire::findEnumerator(name);
        const wire::Enumeration* const names = wire::findEnumeration("KELU_TV_SRC_E");
        mSource = Json{{"source", source != nullptr ? valueDocument(source->value, names) : Json(name)},
                       {"plugged", plugged}};
    }

    /** Of the source of the line before. */
    void readSignal(const std::string& rest) {
        const Tokens tokens = simulator::tokensOf(rest);
        Json signal = Json::object();
        for (std::size_t i = 1; i < tokens.size(); ++i) {
            const Assignment state = simulator::assignmentOf(tokens[i].raw);
            signal[state.name] = valuesOf(state.values.value_or(Tokens()), partsOf(state.name, false));
        }
        mSource["signal"] = std::move(signal);
        add("sources", mSource);
    }

    void readCec(const std::string& rest) {
        const Tokens tokens = simulator::tokensOf(rest);
        if (tokens.front().raw == "play") {
            mDocument["cecPlaying"] = numberIn(tokens.back().raw);
        } else if (tokens.front().raw == "put") {
            Json device;
            for (std::size_t i = 1; i < tokens.size(); ++i) {
                const std::string word = tokens[i].text();
                const std::string field = word.substr(0, word.find('='));
                const std::string value = word.substr(field.size() + 1);
                device[field] = field == "plugged"     ? Json(value == "1")
                                : tokens[i].isQuoted() ? Json(value)
                                                       : numberIn(value);
            }
            add("cecDevices", std::move(device));
        } else if (tokens.size() == 1) {
            mDocument["cecDevices"] = Json::array();
        }
    }

    void readPower(const std::string& rest) {
        const wire::EventTable events(wire::simulatedEvents());
        const wire::Enumeration* const names = events.named("powerStateChanged")->fields[0].names;
        const Tokens tokens = simulator::tokensOf(rest);
        const std::int32_t state = simulator::integerOf(tokens.front().raw, wire::namesOf(*names), "power state");
        Json power{{"state", valueDocument(state, names)}};
        for (std::size_t i = 1; i < tokens.size(); ++i) {
            const std::size_t equals = tokens[i].raw.find('=');
            power[tokens[i].raw.substr(0, equals)] = numberIn(tokens[i].raw.substr(equals + 1));
        }
        mDocument["power"] = std::move(power);
    }

    void readFault(const std::string& rest) { add("faults", rest); }

    void readInitial(const std::string& state, const std::string& values) {
        add("initial",
            {{"state", state}, {"values", valuesOf(simulator::tokensOf(values, ", "), partsOf(state, false))}});
    }

    void readState(const std::string& line, bool isSettable) {
        const Assignment state = simulator::assignmentOf(line);
        if (state.values) {
            add("states", {{"state", state.name},
                           {"keys", valuesOf(state.indexes, partsOf(state.name, true))},
                           {"values", valuesOf(*state.values, partsOf(state.name, false))},
                           {"settable", isSettable}});
        }
    }

    Json mDocument;
    Json mSource;
    std::vector<std::string> mLines;
};

} // namespace

Json simDocument(const std::string& text) { return DocumentBuilder(text).take(); }

Json simHelpDocument(const std::string& verb) {
    Json document{{"ok", true}, {"lines", linesOf(simulator::controlHelp(verb))}};
    document["verbs"] = Json::array();
    for (const simulator::ControlVerb& each : simulator::controlVerbs()) {
        if (verb.empty() || verb == each.name) {
            document["verbs"].add(
                {{"verb", each.name}, {"form", each.form}, {"meaning", each.meaning}, {"example", each.example}});
        }
    }
    return document;
}

Json simRefusalDocument(const std::string& complaint) { return {{"ok", false}, {"lines", linesOf(complaint)}}; }

} // namespace kelutv::tool
