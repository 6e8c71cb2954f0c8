#include "tools/kelutv/compliance/form/Aspects.h"

#include "tools/kelutv/compliance/framework/Terms.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "wire/text/EnumeratorNames.h"
#include "wire/text/ResultNames.h"

#include <algorithm>
#include <cstdlib>

namespace kelutv::tool::compliance {

namespace {

using Flaw = wire::ReplyFlaw::Kind;

bool isText(const wire::ReplyField& field) {
    return field.encoding == wire::Encoding::CString || field.encoding == wire::Encoding::String16;
}

bool isCounted(const wire::ReplyField& field) {
    return field.count == wire::kCountOfRest || (field.count == wire::kRestOfReply && !isText(field));
}

template <typename Predicate> bool hasField(const wire::Operation& operation, Predicate isMeant) {
    return std::any_of(operation.reply.begin(), operation.reply.end(), isMeant);
}

/** The names of what a function hands out as one value. */
const wire::Enumeration* namesOfResult(const wire::Function& function) {
    return function.result.kind == wire::ValueKind::Single ? function.result.names : nullptr;
}

/** What an answer without a payload comes to, since it tells nothing of one. */
std::optional<Outcome> withoutPayload(const wire::Function& function, const Answer& answer) {
    if (answer.exchange.status != 0) {
        return Outcome{Verdict::failed, noReplyText(answer.exchange.status), std::nullopt};
    }
    if (!answer.reading.hasResult) {
        return Outcome{Verdict::inconclusive, "the reply has no result word", std::nullopt};
    }
    if (answer.reading.reply.result != 0 && !function.statusIsValue) {
        return Outcome{Verdict::refused, "the service answered " + wire::resultText(answer.reading.reply.result),
                       std::nullopt};
    }
    return std::nullopt;
}

Outcome withoutFlaw(const wire::Function& function, const Answer& answer, Flaw flaw) {
    if (auto outcome = withoutPayload(function, answer)) {
        return *outcome;
    }
    const auto& found = answer.reading.flaw;
    return found && found->kind == flaw ? Outcome{Verdict::failed, textOf(*found), std::nullopt} : Outcome{};
}

Outcome judgeStatus(const wire::Function& /*function*/, const Answer& answer) {
    if (answer.exchange.status != 0) {
        return {Verdict::failed, noReplyText(answer.exchange.status), std::nullopt};
    }
    return answer.reading.hasResult ? Outcome{} : Outcome{Verdict::failed, textOf(*answer.reading.flaw), std::nullopt};
}

Outcome judgePayload(const wire::Function& function, const Answer& answer) {
    return withoutFlaw(function, answer, Flaw::Missing);
}

Outcome judgeEnd(const wire::Function& function, const Answer& answer) {
    const auto& flaw = answer.reading.flaw;
    if (answer.exchange.status == 0 && answer.reading.hasResult && flaw && flaw->kind == Flaw::TooMuch) {
        return {Verdict::failed, textOf(*flaw), std::nullopt};
    }
    return withoutPayload(function, answer).value_or(Outcome{});
}

Outcome judgeTexts(const wire::Function& function, const Answer& answer) {
    return withoutFlaw(function, answer, Flaw::Unterminated);
}

bool isKnown(const wire::Enumeration& names, const wire::Value& value) {
    const auto* const number = std::get_if<std::int32_t>(&value);
    return number == nullptr || std::any_of(names.values.begin(), names.values.end(), [number](const auto& each) {
               return !each.isEndMarker && each.value == *number;
           });
}

std::string unknownText(const wire::Enumeration& names, const wire::Value& value) {
    return std::string(names.name) + " has no " + std::to_string(std::get<std::int32_t>(value));
}

/** The first value that its enumeration lacks; empty when there is none. */
std::string unknownIn(const wire::Function& function, const Answer& answer) {
    const auto& fields = answer.reading.reply.fields;
    if (const wire::Enumeration* const names = namesOfResult(function)) {
        const wire::Value result =
            function.statusIsValue || fields.empty() ? answer.reading.reply.result : fields.front().front();
        if (!isKnown(*names, result)) {
            return unknownText(*names, result);
        }
    }
    for (std::size_t i = 0; i < fields.size() && answer.operation->reply.size() > 0; ++i) {
        const wire::Enumeration* const names = answer.operation->reply[i % answer.operation->reply.size()].names;
        for (const wire::Value& value : fields[i]) {
            if (names != nullptr && !isKnown(*names, value)) {
                return unknownText(*names, value);
            }
        }
    }
    return "";
}

Outcome judgeEnumerations(const wire::Function& function, const Answer& answer) {
    if (auto outcome = withoutPayload(function, answer)) {
        return *outcome;
    }
    const std::string unknown = unknownIn(function, answer);
    return unknown.empty() ? Outcome{} : Outcome{Verdict::failed, unknown, std::nullopt};
}

/** How many values the caller's array takes; nothing where the catalogue gives no number. */
std::optional<std::size_t> roomOf(const wire::Function& function) {
    for (const wire::Parameter& parameter : function.parameters) {
        const std::string length = parameter.length != nullptr ? parameter.length : "";
        const bool isNumber = !length.empty() && length.find_first_not_of("0123456789") == std::string::npos;
        if (parameter.values.kind == wire::ValueKind::Array && parameter.direction == wire::Direction::Out &&
            isNumber) {
            return std::strtoul(length.c_str(), nullptr, 10);
        }
    }
    return std::nullopt;
}

Outcome judgeCounts(const wire::Function& function, const Answer& answer) {
    if (auto outcome = withoutPayload(function, answer)) {
        return *outcome;
    }
    const auto& fields = answer.reading.reply.fields;
    const auto room = roomOf(function);
    for (std::size_t i = 0; i < fields.size() && i < answer.operation->reply.size(); ++i) {
        const wire::ReplyField& field = answer.operation->reply[i];
        if (field.count == wire::kCountOfRest && std::get<std::int32_t>(fields[i].front()) < 0) {
            return {Verdict::failed, "a count is " + std::to_string(std::get<std::int32_t>(fields[i].front())),
                    std::nullopt};
        }
        if (room && isCounted(field) && fields[i].size() > *room) {
            return {Verdict::failed,
                    std::to_string(fields[i].size()) + " values for a buffer of " + std::to_string(*room),
                    std::nullopt};
        }
    }
    return answer.reading.flaw && answer.reading.flaw->kind == Flaw::Missing
               ? Outcome{Verdict::failed, textOf(*answer.reading.flaw), std::nullopt}
               : Outcome{};
}

constexpr Aspect kAspects[] = {
    {"status", "The reply begins with the result word, which every client reads first.",
     [](const wire::Function&, const wire::Operation&) { return true; }, judgeStatus},
    {"payload", "Behind a result of 0 comes all that the operation hands out, since clients read it without asking.",
     [](const wire::Function&, const wire::Operation& operation) { return operation.shape != wire::Shape::Status; },
     judgePayload},
    {"end", "Nothing comes behind what the operation hands out: what no client reads was meant to be something else.",
     [](const wire::Function&, const wire::Operation&) { return true; }, judgeEnd},
    {"terminated", "Texts have their terminator, without which a client reads beyond them.",
     [](const wire::Function&, const wire::Operation& operation) { return hasField(operation, isText); }, judgeTexts},
    {"enumeration", "Values of an enumeration are values that it has, since applications know no others.",
     [](const wire::Function& function, const wire::Operation& operation) {
         return namesOfResult(function) != nullptr ||
                hasField(operation, [](const wire::ReplyField& field) { return field.names != nullptr; });
     },
     judgeEnumerations},
    {"count", "A count is that of the values that follow, and they fit into the buffer of the caller.",
     [](const wire::Function&, const wire::Operation& operation) { return hasField(operation, isCounted); },
     judgeCounts},
};

const wire::Operation* operationOf(const wire::SentRequest& request) {
    const wire::Command* const command = wire::findCommand(request.commandValue);
    return command != nullptr ? wire::operationOf(*command, {{wire::Value(request.itemValue)}}) : nullptr;
}

} // namespace

std::vector<Aspect> aspectsOf(const wire::Function& function) {
    std::vector<Aspect> aspects;
    for (const Aspect& aspect : kAspects) {
        const bool isWanted =
            std::any_of(function.requests.begin(), function.requests.end(), [&](const wire::SentRequest& request) {
                const wire::Operation* const operation = operationOf(request);
                return operation != nullptr && aspect.concerns(function, *operation);
            });
        if (isWanted) {
            aspects.push_back(aspect);
        }
    }
    return aspects;
}

} // namespace kelutv::tool::compliance
