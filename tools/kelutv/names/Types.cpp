#include "tools/kelutv/names/Entry.h"
#include "tools/kelutv/names/EntryText.h"
#include "tools/kelutv/text/EnumeratedValue.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/Record.h"
#include "wire/text/Names.h"

#include <algorithm>
#include <cstring>

namespace kelutv::tool {

namespace {

std::string withMeaning(const std::string& text, const std::string& meaning) {
    return meaning.empty() ? text : text + ": " + meaning;
}

bool mentions(const wire::Function& function, const wire::Enumeration& enumeration) {
    return function.result.names == &enumeration ||
           std::any_of(function.parameters.begin(), function.parameters.end(),
                       [&](const wire::Parameter& each) { return each.values.names == &enumeration; });
}

bool mentions(const wire::Function& function, const wire::Record& record) {
    return function.result.record == &record ||
           std::any_of(function.parameters.begin(), function.parameters.end(),
                       [&](const wire::Parameter& each) { return each.values.record == &record; });
}

template <typename Type> std::vector<std::string> functionsThatMention(const Type& type) {
    std::vector<const wire::Function*> functions;
    for (const wire::Function& function : wire::allFunctions()) {
        if (mentions(function, type)) {
            functions.push_back(&function);
        }
    }
    return namesOf(functions);
}

class EnumerationEntry : public Entry {
public:
    explicit EnumerationEntry(const wire::Enumeration& enumeration)
        : Entry(enumeration.name), mEnumeration(enumeration) {}

    const char* kind() const override { return "enumeration"; }

    std::string brief() const override { return wire::meaningOf(name()); }

    std::vector<std::string> lines() const override {
        std::vector<std::string> lines;
        for (const wire::Enumerator& each : mEnumeration.values) {
            if (!each.isEndMarker) {
                const std::string value = std::to_string(each.value) + ' ' +
                                          wire::namesOf(mEnumeration).shortNameOf(each.value) + ' ' + each.name;
                lines.push_back("    " + withMeaning(value, wire::meaningOf(each.name)));
            }
        }
        const std::vector<std::string> functions = functionsThatMention(mEnumeration);
        if (!functions.empty()) {
            lines.push_back("Used by: " + joined(functions, ", "));
        }
        return lines;
    }

    void addTo(Json& document) const override {
        document["meaning"] = wire::meaningOf(name());
        document["values"] = Json::array();
        for (const wire::Enumerator& each : mEnumeration.values) {
            if (!each.isEndMarker) {
                document["values"].add({{"value", each.value},
                                        {"enumerator", each.name},
                                        {"short", wire::namesOf(mEnumeration).shortNameOf(each.value)},
                                        {"meaning", wire::meaningOf(each.name)}});
            }
        }
        document["functions"] = functionsThatMention(mEnumeration);
    }

private:
    const wire::Enumeration& mEnumeration;
};

class ValueEntry : public Entry {
public:
    ValueEntry(const wire::Enumerator& value, const wire::Enumeration& of)
        : Entry(value.name), mValue(value.value), mOf(of) {}

    const char* kind() const override { return "value"; }

    std::string brief() const override {
        return withMeaning(std::to_string(mValue) + " of " + mOf.name, wire::meaningOf(name()));
    }

    std::vector<std::string> lines() const override { return {}; }

    void addTo(Json& document) const override {
        document["value"] = mValue;
        document["enumeration"] = mOf.name;
        document["meaning"] = wire::meaningOf(name());
    }

private:
    std::int32_t mValue;
    const wire::Enumeration& mOf;
};

const char* wordFor(wire::ScalarType scalar) {
    switch (scalar) {
    case wire::ScalarType::Unsigned:
        return "unsigned int";
    case wire::ScalarType::Bool:
        return "bool";
    case wire::ScalarType::Double:
        return "double";
    case wire::ScalarType::Char:
        return "char";
    case wire::ScalarType::Byte:
        return "unsigned char";
    case wire::ScalarType::Int:
        break;
    }
    return "int";
}

std::string typeOf(const wire::Field& field) {
    const std::string word = wordFor(field.scalar);
    return field.count > 1 ? word + '[' + std::to_string(field.count) + ']' : word;
}

class RecordEntry : public Entry {
public:
    explicit RecordEntry(const wire::Record& record) : Entry(record.name), mRecord(record) {}

    const char* kind() const override { return "record"; }

    std::string brief() const override { return wire::meaningOf(name()); }

    std::vector<std::string> lines() const override {
        std::vector<std::string> lines;
        for (const wire::Field& field : mRecord.fields) {
            lines.push_back("    " + withMeaning(fieldText(typeOf(field), field.name, field.names), meaningOf(field)));
        }
        const std::vector<std::string> functions = functionsThatMention(mRecord);
        if (!functions.empty()) {
            lines.push_back("Used by: " + joined(functions, ", "));
        }
        return lines;
    }

    void addTo(Json& document) const override {
        document["meaning"] = wire::meaningOf(name());
        document["fields"] = Json::array();
        for (const wire::Field& field : mRecord.fields) {
            Json entry = fieldDocument(typeOf(field), field.name, field.names);
            entry["meaning"] = meaningOf(field);
            document["fields"].add(entry);
        }
        document["functions"] = functionsThatMention(mRecord);
    }

private:
    std::string meaningOf(const wire::Field& field) const { return wire::meaningOf(name() + '.' + field.name); }

    const wire::Record& mRecord;
};

/** Commands and items are entries of their own. */
bool holdsRequests(const wire::Enumeration& enumeration) {
    return std::strcmp(enumeration.name, "ATV_CMD_ID_E") == 0 || std::strcmp(enumeration.name, "KELU_TV_CMDID_E") == 0;
}

} // namespace

void addTypes(Entries& entries) {
    for (const wire::Enumeration& enumeration : wire::allEnumerations()) {
        entries.push_back(std::make_unique<EnumerationEntry>(enumeration));
        for (const wire::Enumerator& value : enumeration.values) {
            if (!holdsRequests(enumeration)) {
                entries.push_back(std::make_unique<ValueEntry>(value, enumeration));
            }
        }
    }
    for (const wire::Record& record : wire::allRecords()) {
        entries.push_back(std::make_unique<RecordEntry>(record));
    }
}

} // namespace kelutv::tool
