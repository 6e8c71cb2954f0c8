#include "Trace.h"

#include <algorithm>
#include <cstdio>

namespace simulator {

namespace {

template <typename... Values> std::string formatted(const char* format, Values... values) {
    char text[64];
    std::snprintf(text, sizeof(text), format, values...);
    return text;
}

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            result += {'\\', character};
        } else if (byte < 0x20 || byte == 0x7F) {
            result += formatted("\\x%02x", byte);
        } else {
            result += character;
        }
    }
    return result + '"';
}

std::string hex(const std::string& bytes) {
    std::string result;
    for (const char byte : bytes) {
        result += formatted(result.empty() ? "%02x" : " %02x", static_cast<unsigned char>(byte));
    }
    return '<' + result + '>';
}

std::string nameOf(std::int32_t value, const EnumerationNames* names) {
    if (names == nullptr) {
        return "";
    }
    const auto* const found =
        std::find_if(names->begin(), names->end(), [value](const EnumeratorName& row) { return row.value == value; });
    return found != names->end() ? std::string(" ") + found->name : "";
}

std::string describe(const Scalar& scalar, Kind kind, const EnumerationNames* names) {
    if (const auto* const number = std::get_if<std::int32_t>(&scalar)) {
        return std::to_string(*number) + nameOf(*number, names);
    }
    if (const auto* const real = std::get_if<double>(&scalar)) {
        return formatted("%g", *real);
    }
    const auto& text = std::get<std::string>(scalar);
    return kind == Kind::Bytes ? hex(text) : quoted(text);
}

std::string joined(const Scalars& scalars, Kind kind, const EnumerationNames* names) {
    std::string result;
    for (const Scalar& scalar : scalars) {
        result += (result.empty() ? "" : ", ") + describe(scalar, kind, names);
    }
    return result;
}

bool isBlock(Kind kind) { return kind == Kind::Ints || kind == Kind::Doubles; }

/** The zeros that fill up a block of fixed length are only counted. */
std::string describeBlock(Scalars scalars, Kind kind, const EnumerationNames* names) {
    std::size_t zeros = 0;
    while (scalars.size() > 1 && (scalars.back() == Scalar(0) || scalars.back() == Scalar(0.0))) {
        scalars.pop_back();
        ++zeros;
    }
    return '[' + joined(scalars, kind, names) + (zeros > 0 ? ", 0*" + std::to_string(zeros) : "") + ']';
}

std::string describeField(const Scalars& scalars, const ReplyField& field) {
    const std::string text = isBlock(field.kind) ? describeBlock(scalars, field.kind, field.names)
                                                 : joined(scalars, field.kind, field.names);
    return field.name != nullptr ? std::string(field.name) + '=' + text : text;
}

/** A list of records repeats the fields of one; what it holds may be beyond the catalogue, too. */
const ReplyField& fieldAt(const Operation& operation, std::size_t index) {
    static constexpr ReplyField kPlain{Kind::Int32, nullptr, nullptr, 1};
    return operation.reply.size() > 0 ? operation.reply[index % operation.reply.size()] : kPlain;
}

std::string describeArguments(const Request& request) {
    const Rows<RequestItem>& items =
        (request.operation != nullptr ? *request.operation : request.command->operation).request;
    std::string result;
    for (std::size_t i = 0; i < request.arguments.size(); ++i) {
        const RequestItem& item = items[i];
        const Scalars& scalars = request.arguments[i];
        result += (i == 0 ? "" : ", ") + std::string(item.name) + '=' +
                  (isBlock(item.kind) ? describeBlock(scalars, item.kind, item.names)
                                      : joined(scalars, item.kind, item.names));
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

std::string describe(const Change& change) {
    return std::string(change.slot->name) + '[' + joined(change.keys, Kind::Int32, nullptr) +
           "] = " + joined(change.values, Kind::Int32, nullptr);
}

} // namespace simulator
