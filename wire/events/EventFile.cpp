#include "wire/events/EventFile.h"

#include "wire/text/Letters.h"
#include "wire/text/Nearest.h"
#include "wire/text/Numbers.h"
#include "wire/text/PipeTables.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace kelutv::wire {

namespace {

constexpr char kEvents[] = "Events";
constexpr char kEnumerations[] = "Enumerations";
constexpr std::uint32_t kLargestInModule = 0xFFFF;

const std::vector<TableForm>& forms() {
    static const auto* const forms =
        new std::vector<TableForm>{{kEvents, {"identifier", "event", "payload", "when"}},
                                   {kEnumerations, {"enumeration", "enumerator", "value", "meaning"}}};
    return *forms;
}

struct NamedType {
    const char* name;
    FieldType type;
};

constexpr NamedType kTypes[] = {
    {"int8", FieldType::Int8},     {"uint8", FieldType::UInt8}, {"int16", FieldType::Int16},
    {"uint16", FieldType::UInt16}, {"int32", FieldType::Int32}, {"bool", FieldType::Int32},
    {"text", FieldType::Text},     {"bytes", FieldType::Bytes},
};

/** Decimal or with 0x. */
std::optional<std::uint32_t> numberIn(const std::string& text) {
    const std::string prefix = lowered(text.substr(0, 2));
    const bool isHexadecimal = prefix == "0x";
    const bool hasLeadingZero = !isHexadecimal && text.size() > 1 && text.front() == '0';
    const auto number = wholeNumber<std::uint32_t>(text.substr(isHexadecimal ? 2 : 0), isHexadecimal ? 16 : 10);
    return hasLeadingZero ? std::nullopt : number;
}

bool holdsOnly(const std::string& text, const char* characters) {
    return !text.empty() && text.find_first_not_of(characters) == std::string::npos;
}

constexpr char kCapitals[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
constexpr char kLetters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr char kWordCharacters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";

bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool isSmall(char character) { return character >= 'a' && character <= 'z'; }

std::string typeNames() {
    std::string names;
    for (const NamedType& type : kTypes) {
        names += (names.empty() ? "" : ", ") + std::string(type.name);
    }
    return names;
}

/** The rows of a file and what they point to. */
struct Content {
    const char* keep(const std::string& text) { return texts.emplace_back(text).c_str(); }

    std::deque<std::string> texts;
    std::deque<std::vector<Enumerator>> enumerators;
    std::deque<Enumeration> enumerations;
    std::deque<std::vector<EventField>> fields;
    std::vector<Event> events;
};

class EventReader {
public:
    explicit EventReader(Content& content) : mContent(content) {}

    void addEnumerator(const TableRow& row) {
        const std::string& name = row.cells[0];
        const std::string& enumerator = row.cells[1];
        for (const std::string& word : {name, enumerator}) {
            if (!holdsOnly(word, kCapitals) || isDigit(word.front()) || word.front() == '_') {
                throw LineError(row.line,
                                "'" + shown(word) + "' is not a name of capital letters, digits and underscores");
            }
        }
        if (findEnumeration(name) != nullptr) {
            throw LineError(row.line, name + " is an enumeration of the public headers already");
        }
        if (findEnumerator(enumerator) != nullptr || isOwnEnumerator(enumerator)) {
            throw LineError(row.line, "the enumerator " + enumerator + " exists already");
        }
        const auto value = numberIn(row.cells[2]);
        if (!value || *value > INT32_MAX) {
            throw LineError(row.line, "value '" + shown(row.cells[2]) + "' is not a number from 0 to 2147483647");
        }
        std::vector<Enumerator>& values = ownEnumeration(name);
        values.push_back({mContent.keep(enumerator), static_cast<std::int32_t>(*value)});
    }

    /** The enumerations have all their values. */
    void closeEnumerations() {
        for (std::size_t i = 0; i < mNames.size(); ++i) {
            const std::vector<Enumerator>& values = mContent.enumerators[i];
            mContent.enumerations.push_back({mNames[i], {values.data(), values.size()}});
        }
    }

    void addEvent(const TableRow& row) {
        const std::string& name = row.cells[1];
        if (!holdsOnly(name, kLetters) || !isSmall(name.front())) {
            throw LineError(row.line, "event '" + shown(name) + "' is not a name such as volumeChanged");
        }
        Event event = withIdentifiers(row);
        for (std::size_t i = 0; i < mContent.events.size(); ++i) {
            refuseTwin(mContent.events[i], mLines[i], event, row);
        }
        event.name = mContent.keep(name);
        event.fields = fieldsOf(row);
        event.when = mContent.keep(row.cells[3]);
        mContent.events.push_back(event);
        mLines.push_back(row.line);
    }

private:
    /** Complains when the event of a row has the name or an identifier of one that stands before it. */
    static void refuseTwin(const Event& known, std::size_t line, const Event& event, const TableRow& row) {
        if (lowered(known.name) == lowered(row.cells[1])) {
            throw LineError(row.line, "event " + row.cells[1] + " stands on line " + std::to_string(line) + " already");
        }
        if (event.first <= known.last && known.first <= event.last) {
            throw LineError(row.line, "identifier " + row.cells[0] + " is that of " + known.name + " on line " +
                                          std::to_string(line));
        }
    }

    bool isOwnEnumerator(const std::string& name) const {
        return std::any_of(mContent.enumerators.begin(), mContent.enumerators.end(), [&name](const auto& values) {
            return std::any_of(values.begin(), values.end(),
                               [&name](const Enumerator& row) { return row.name == name; });
        });
    }

    std::vector<Enumerator>& ownEnumeration(const std::string& name) {
        const auto known = std::find(mNames.begin(), mNames.end(), name);
        if (known != mNames.end()) {
            return mContent.enumerators[static_cast<std::size_t>(known - mNames.begin())];
        }
        mNames.push_back(mContent.keep(name));
        return mContent.enumerators.emplace_back();
    }

    const Enumeration* enumerationNamed(const std::string& name) const {
        const auto own = std::find_if(mContent.enumerations.begin(), mContent.enumerations.end(),
                                      [&name](const Enumeration& each) { return each.name == name; });
        return own != mContent.enumerations.end() ? &*own : findEnumeration(name);
    }

    static std::uint32_t identifierIn(const TableRow& row, const std::string& text) {
        const std::size_t plus = text.find('+');
        const auto number = numberIn(plus == std::string::npos ? text : text.substr(plus + 1));
        if (plus == std::string::npos && number) {
            return *number;
        }
        for (const Enumerator& module : eventModules().values) {
            const auto value = static_cast<std::uint32_t>(module.value);
            if (number && *number <= kLargestInModule && isEventModule(value) && text.substr(0, plus) == module.name) {
                return value + *number;
            }
        }
        throw LineError(row.line, "identifier '" + shown(text) +
                                      "' is neither a number nor MODULE+NUMBER with a module of KELU_EM_MODE_E and a "
                                      "number from 0 to 0xFFFF");
    }

    static Event withIdentifiers(const TableRow& row) {
        const std::string& text = row.cells[0];
        const std::size_t dots = text.find("..");
        const std::string first = text.substr(0, dots);
        const std::string last = dots == std::string::npos ? first : text.substr(dots + 2);
        const Event event{identifierIn(row, first), identifierIn(row, last), "", {}, ""};
        if (event.first > event.last) {
            throw LineError(row.line, "the range " + shown(text) + " is empty");
        }
        if (!isEventModule(moduleOf(event.first))) {
            throw LineError(row.line,
                            "the upper half of identifier " + first + " is not a module of " + eventModules().name);
        }
        if (moduleOf(event.first) != moduleOf(event.last)) {
            throw LineError(row.line, "the range " + shown(text) + " goes beyond its module");
        }
        return event;
    }

    Rows<EventField> fieldsOf(const TableRow& row) {
        std::vector<EventField>& fields = mContent.fields.emplace_back();
        if (row.cells[2] != "-") {
            for (const std::string& text : splitAt(row.cells[2], ',')) {
                addField(row, text, fields);
            }
        }
        return {fields.data(), fields.size()};
    }

    void addField(const TableRow& row, const std::string& text, std::vector<EventField>& fields) {
        const std::size_t colon = text.find(':');
        const std::string name = text.substr(0, colon);
        if (colon == std::string::npos || !holdsOnly(name, kWordCharacters) || isDigit(name.front())) {
            throw LineError(row.line, "field '" + shown(text) + "' is not NAME:TYPE");
        }
        for (const EventField& known : fields) {
            if (known.name == name) {
                throw LineError(row.line, "field " + shown(name) + " stands twice");
            }
        }
        if (!fields.empty() && (fields.back().type == FieldType::Text || fields.back().type == FieldType::Bytes)) {
            throw LineError(row.line, std::string("field ") + fields.back().name +
                                          " takes the rest of the payload and must be the last field");
        }
        fields.push_back(typed(row, mContent.keep(name), text.substr(colon + 1)));
    }

    EventField typed(const TableRow& row, const char* name, const std::string& type) const {
        for (const NamedType& known : kTypes) {
            if (type == known.name) {
                return {name, known.type, nullptr};
            }
        }
        if (const Enumeration* const names = enumerationNamed(type)) {
            return {name, FieldType::Int32, names};
        }
        std::vector<std::string> enumerations;
        for (const Enumeration& each : allEnumerations()) {
            enumerations.emplace_back(each.name);
        }
        throw LineError(row.line, "type '" + shown(type) + "' is neither an enumeration nor one of: " + typeNames() +
                                      nearestHint(type, enumerations));
    }

    Content& mContent;
    /** Of the enumerations of the file. */
    std::vector<const char*> mNames;
    /** Where each event stands. */
    std::vector<std::size_t> mLines;
};

constexpr std::uintmax_t kLongestFile = 1024 * 1024;

/** Whether it is there but cannot be read to its end: a pipe, a device, a folder, or without end. */
bool isOtherThanFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::exists(path, error) &&
           (!std::filesystem::is_regular_file(path, error) || std::filesystem::file_size(path, error) > kLongestFile);
}

} // namespace

EventTable readEvents(const std::string& text) {
    auto tables = readPipeTables(text, forms());
    const auto content = std::make_shared<Content>();
    EventReader reader(*content);
    for (const TableRow& row : tables[kEnumerations]) {
        reader.addEnumerator(row);
    }
    reader.closeEnumerations();
    if (tables[kEvents].empty()) {
        throw LineError(1, "there is no table of events below a heading '## Events'");
    }
    for (const TableRow& row : tables[kEvents]) {
        reader.addEvent(row);
    }
    return EventTable({content->events.data(), content->events.size()}, content);
}

EventTable readEventFile(const std::string& path) {
    if (isOtherThanFile(path)) {
        throw EventFileError("cannot read " + path + ": it must be a regular file of at most " +
                             std::to_string(kLongestFile) + " bytes");
    }
    std::ifstream file(path, std::ios::binary);
    std::string text;
    if (file) {
        std::getline(file, text, '\0');
    }
    if (!file && !file.eof()) {
        throw EventFileError("cannot read " + path + ": " + std::strerror(errno));
    }
    try {
        return readEvents(text);
    } catch (const LineError& error) {
        throw EventFileError(path + ':' + std::to_string(error.line()) + ": " + error.what());
    }
}

} // namespace kelutv::wire
