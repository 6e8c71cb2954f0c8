#include "tools/kelutv/names/EntryText.h"

#include "tools/kelutv/text/Lists.h"

#include <cstdio>

namespace kelutv::tool {

namespace {

const char* wordFor(wire::Encoding encoding) {
    switch (encoding) {
    case wire::Encoding::Double:
        return "double";
    case wire::Encoding::CString:
        return "cstring";
    case wire::Encoding::String16:
        return "string16";
    case wire::Encoding::Ints:
        return "ints";
    case wire::Encoding::Doubles:
        return "doubles";
    case wire::Encoding::Bytes:
        return "bytes";
    case wire::Encoding::Int32:
        break;
    }
    return "int32";
}

/** `ints[255]`, `int32...` for what goes on to the end of the answer. */
std::string typeOf(const wire::ReplyField& field) {
    const std::string word = wordFor(field.encoding);
    if (field.count == wire::kRestOfReply) {
        return word + "...";
    }
    return field.count > 1 ? word + '[' + std::to_string(field.count) + ']' : word;
}

std::string requestText(const wire::Operation& operation) {
    std::vector<std::string> items;
    for (const wire::RequestItem& item : operation.request) {
        items.push_back(fieldText(wordFor(item.encoding), item.name, item.names));
    }
    return items.empty() ? "nothing more" : joined(items, ", ");
}

std::string replyText(const wire::Operation& operation) {
    std::vector<std::string> fields;
    for (const wire::ReplyField& field : operation.reply) {
        fields.push_back(fieldText(typeOf(field), field.name, field.names));
    }
    return operation.shape == wire::Shape::Status || fields.empty() ? "the result alone" : joined(fields, ", ");
}

} // namespace

std::string numberText(std::int32_t number) {
    char text[32];
    std::snprintf(text, sizeof text, "0x%X (%d)", static_cast<unsigned int>(number), number);
    return text;
}

std::string fieldText(const std::string& type, const char* name, const wire::Enumeration* names) {
    return type + (name != nullptr ? std::string(" ") + name : "") +
           (names != nullptr ? std::string(" of ") + names->name : "");
}

Json fieldDocument(const std::string& type, const char* name, const wire::Enumeration* names) {
    Json document;
    if (name != nullptr) {
        document["name"] = name;
    }
    document["type"] = type;
    if (names != nullptr) {
        document["enumeration"] = names->name;
    }
    return document;
}

std::vector<std::string> namesOf(const std::vector<const wire::Function*>& functions) {
    std::vector<std::string> names;
    for (const wire::Function* const function : functions) {
        names.emplace_back(function->shortName);
    }
    return names;
}

std::vector<std::string> linesOf(const wire::Operation& operation) {
    return {"    in order: " + requestText(operation), "    reply: " + replyText(operation)};
}

void addOperation(Json& document, const wire::Operation& operation) {
    document["arguments"] = Json::array();
    for (const wire::RequestItem& item : operation.request) {
        document["arguments"].add(fieldDocument(wordFor(item.encoding), item.name, item.names));
    }
    document["reply"] = Json::array();
    if (operation.shape != wire::Shape::Status) {
        for (const wire::ReplyField& field : operation.reply) {
            document["reply"].add(fieldDocument(typeOf(field), field.name, field.names));
        }
    }
}

} // namespace kelutv::tool
