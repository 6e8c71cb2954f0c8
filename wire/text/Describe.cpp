#include "wire/text/Describe.h"

#include "wire/text/EnumeratorNames.h"
#include "wire/text/Quote.h"

#include <cstdio>

namespace kelutv::wire {

namespace {

template <typename... Values> std::string formatted(const char* format, Values... values) {
    char text[64];
    std::snprintf(text, sizeof(text), format, values...);
    return text;
}

std::string hex(const std::string& bytes) {
    std::string result;
    for (const char byte : bytes) {
        result += formatted(result.empty() ? "%02x" : " %02x", static_cast<unsigned char>(byte));
    }
    return '<' + result + '>';
}

std::string describeValue(const Value& value, Encoding kind, const Enumeration* names) {
    if (const auto* const number = std::get_if<std::int32_t>(&value)) {
        const std::string name = nameOfValue(*number, names);
        return std::to_string(*number) + (name.empty() ? "" : ' ' + name);
    }
    if (const auto* const real = std::get_if<double>(&value)) {
        return formatted("%g", *real);
    }
    const auto& text = std::get<std::string>(value);
    return kind == Encoding::Bytes ? hex(text) : inQuotes(text);
}

bool isBlock(Encoding kind) { return kind == Encoding::Ints || kind == Encoding::Doubles; }

/** The zeros that fill up a block of fixed length are only counted. */
std::string describeBlock(Values values, Encoding kind, const Enumeration* names) {
    std::size_t zeros = 0;
    while (values.size() > 1 && (values.back() == Value(0) || values.back() == Value(0.0))) {
        values.pop_back();
        ++zeros;
    }
    return '[' + joined(values, kind, names) + (zeros > 0 ? ", 0*" + std::to_string(zeros) : "") + ']';
}

std::string describeField(const Values& values, const ReplyField& field) {
    const std::string text = describe(values, field.encoding, field.names);
    return field.name != nullptr ? std::string(field.name) + '=' + text : text;
}

std::string describeArguments(const Request& request) {
    const Rows<RequestItem>& items = itemsOf(request);
    std::string result;
    for (std::size_t i = 0; i < request.arguments.size(); ++i) {
        const RequestItem& item = items[i];
        result += (i == 0 ? "" : ", ") + std::string(item.name) + '=' +
                  describe(request.arguments[i], item.encoding, item.names);
    }
    return result;
}

} // namespace

std::string describe(const Request& request) {
    if (request.command != nullptr) {
        return std::string(request.command->name) + '(' + describeArguments(request) + ')';
    }
    if (request.number) {
        return formatted("command 0x%X", static_cast<unsigned int>(*request.number));
    }
    return formatted("request of %zu bytes", request.size);
}

std::string describe(const Request& request, const Reply& reply) {
    std::string result = std::to_string(reply.result);
    if (!reply.complaint.empty()) {
        return result + " (" + reply.complaint + ')';
    }
    for (std::size_t i = 0; i < reply.fields.size(); ++i) {
        result += (i == 0 ? ": " : ", ") + describeField(reply.fields[i], fieldAt(*request.operation, i));
    }
    return result;
}

std::string describe(const Values& values, Encoding kind, const Enumeration* names) {
    return isBlock(kind) ? describeBlock(values, kind, names) : joined(values, kind, names);
}

std::string joined(const Values& values, Encoding kind, const Enumeration* names) {
    std::string result;
    for (const Value& value : values) {
        result += (result.empty() ? "" : ", ") + describeValue(value, kind, names);
    }
    return result;
}

std::string itemNameOf(const Request& request) {
    if (request.command == nullptr || !request.command->hasItems || request.arguments.empty()) {
        return "";
    }
    const auto number = std::get<std::int32_t>(request.arguments.front().front());
    return nameOfValue(number, itemsOf(request)[0].names);
}

const Rows<RequestItem>& itemsOf(const Request& request) {
    return (request.operation != nullptr ? *request.operation : request.command->operation).request;
}

const ReplyField& fieldAt(const Operation& operation, std::size_t index) {
    static constexpr ReplyField kPlain{Encoding::Int32, nullptr, nullptr, 1};
    return operation.reply.size() > 0 ? operation.reply[index % operation.reply.size()] : kPlain;
}

Values handedOutIn(const Operation& operation, const Reply& reply) {
    if (operation.shape == Shape::Status) {
        return {reply.result};
    }
    Values values;
    for (std::size_t i = 0; i < reply.fields.size(); ++i) {
        if (fieldAt(operation, i).count != kCountOfRest) {
            values.insert(values.end(), reply.fields[i].begin(), reply.fields[i].end());
        }
    }
    return values;
}

} // namespace kelutv::wire
