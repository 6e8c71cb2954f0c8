#include "tools/kelutv/comparison/Values.h"

#include "tools/kelutv/events/EventText.h"
#include "tools/kelutv/recordings/DecodedForm.h"
#include "tools/kelutv/text/Hex.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Describe.h"
#include "wire/text/ResultNames.h"

#include <algorithm>
#include <map>

namespace kelutv::tool {

namespace {

using Kind = Happening::Kind;
using Differences = std::vector<ValueDifference>;

/** More values of a block are told of as the whole block. */
constexpr std::size_t kMostOfBlock = 8;

Json valueIn(const NamedValue& value) { return documentOf(value).at("value"); }

/** The elements that differ of two blocks of one length; none when these are too many or the whole block differs. */
std::vector<std::size_t> differingElements(const NamedValue& first, const NamedValue& second) {
    std::vector<std::size_t> elements;
    if (first.values.size() != second.values.size() || first.values.size() < 2) {
        return {};
    }
    for (std::size_t i = 0; i < first.values.size() && elements.size() <= kMostOfBlock; ++i) {
        if (first.values[i] != second.values[i]) {
            elements.push_back(i);
        }
    }
    return elements.size() > kMostOfBlock ? std::vector<std::size_t>() : elements;
}

/** Collects what differs in one place. */
class PlaceComparison {
public:
    PlaceComparison(const char* name, Differences& found) : mName(name), mFound(found) {}

    void addValue(const std::string& name, const NamedValue& first, const NamedValue& second) {
        add(name, valueIn(first), valueIn(second), textIn(first), textIn(second));
    }

    void add(const std::string& name, const Json& first, const Json& second, const std::string& firstText,
             const std::string& secondText) {
        mFound.push_back({mName, name, first, second, firstText, secondText});
    }

    void compare(const std::string& name, const NamedValue& first, const NamedValue& second) {
        if (first.values == second.values) {
            return;
        }
        const std::vector<std::size_t> elements = differingElements(first, second);
        for (const std::size_t index : elements) {
            addValue(elementName(name, index), elementOf(first, index), elementOf(second, index));
        }
        if (elements.empty()) {
            addValue(name, first, second);
        }
    }

    void compare(const std::vector<NamedValue>& first, const std::vector<NamedValue>& second) {
        const std::vector<Part> left = partsOf(first);
        std::vector<Part> right = partsOf(second);
        for (const Part& part : left) {
            const auto other =
                std::find_if(right.begin(), right.end(), [&part](const Part& each) { return each.name == part.name; });
            if (other == right.end()) {
                add(part.name, valueIn(part.value), Json(), textIn(part.value), "");
            } else {
                compare(part.name, part.value, other->value);
                right.erase(other);
            }
        }
        for (const Part& part : right) {
            add(part.name, Json(), valueIn(part.value), "", textIn(part.value));
        }
    }

    void compare(const std::optional<wire::ReplyFlaw>& first, const std::optional<wire::ReplyFlaw>& second) {
        const std::string left = first ? textOf(*first) : "";
        const std::string right = second ? textOf(*second) : "";
        if (left != right) {
            add("fault", left.empty() ? Json() : Json(left), right.empty() ? Json() : Json(right), left, right);
        }
    }

    /** The first byte that differs. */
    void compareBytes(const Bytes& first, const Bytes& second) {
        if (first == second) {
            return;
        }
        const auto [left, right] = std::mismatch(first.begin(), first.end(), second.begin(), second.end());
        const auto digits = [](Bytes::const_iterator byte, const Bytes& bytes) {
            return byte == bytes.end() ? std::string() : hexOf({*byte});
        };
        const std::string before = digits(left, first);
        const std::string after = digits(right, second);
        add("byte " + std::to_string(left - first.begin()), before.empty() ? Json() : Json(before),
            after.empty() ? Json() : Json(after), before, after);
    }

private:
    const char* mName;
    Differences& mFound;
};

void compareRequests(const Happening& first, const Happening& second, Differences& found) {
    PlaceComparison place("request", found);
    if (first.token != second.token || first.hasToken != second.hasToken) {
        place.add("token", hexOf(first.token), hexOf(second.token), spacedHexOf(first.token),
                  spacedHexOf(second.token));
    }
    if (first.bytes == second.bytes) {
        return;
    }
    const std::size_t before = found.size();
    const DecodedRequest left = requestOf(first);
    const DecodedRequest right = requestOf(second);
    place.compare(argumentsOf(left.request), argumentsOf(right.request));
    place.compare(left.flaw, right.flaw);
    if (found.size() == before) {
        place.compareBytes(first.bytes, second.bytes);
    }
}

void compareResults(const wire::ReplyReading& first, const wire::ReplyReading& second, PlaceComparison& place) {
    const auto value = [](const wire::ReplyReading& reading) {
        return reading.hasResult ? Json(reading.reply.result) : Json();
    };
    const auto text = [](const wire::ReplyReading& reading) {
        return reading.hasResult ? wire::resultText(reading.reply.result) : std::string();
    };
    if (value(first) != value(second)) {
        place.add("result", value(first), value(second), text(first), text(second));
    }
}

std::string statusText(const Happening& call) { return call.number == 0 ? "a reply" : noReplyText(call.number); }

void compareReplies(const Happening& first, const Happening& second, Differences& found) {
    PlaceComparison place("reply", found);
    if (first.number != second.number) {
        place.add("status", first.number, second.number, statusText(first), statusText(second));
        return;
    }
    if (first.reply == second.reply) {
        return;
    }
    const std::size_t before = found.size();
    const wire::Operation& left = operationFor(requestOf(first).request);
    const wire::Operation& right = operationFor(requestOf(second).request);
    const wire::ReplyReading leftReading = decodeReply(left, first.reply);
    const wire::ReplyReading rightReading = decodeReply(right, second.reply);
    compareResults(leftReading, rightReading, place);
    place.compare(fieldsOf(left, leftReading.reply), fieldsOf(right, rightReading.reply));
    place.compare(leftReading.flaw, rightReading.flaw);
    if (found.size() == before) {
        place.compareBytes(first.reply, second.reply);
    }
}

void compareEvents(const Happening& first, const Happening& second, Differences& found) {
    PlaceComparison place("event", found);
    place.compare(eventFieldsOf(first), eventFieldsOf(second));
    if (found.empty()) {
        place.compareBytes(first.bytes, second.bytes);
    }
}

} // namespace

std::vector<Part> partsOf(const std::vector<NamedValue>& values) {
    std::map<std::string, std::size_t> counts;
    std::vector<Part> parts;
    for (const NamedValue& value : values) {
        const std::string name = value.name != nullptr ? value.name : "value";
        const std::size_t count = ++counts[name];
        parts.push_back({count == 1 ? name : name + ' ' + std::to_string(count), value});
    }
    return parts;
}

std::vector<NamedValue> eventFieldsOf(const Happening& event) {
    const ReceivedEvent received{{}, identifierOf(event), event.bytes};
    std::vector<NamedValue> values;
    for (const wire::PayloadValue& field : KnownEvent(received, recordedEvents()).fields) {
        values.push_back({field.name, field.encoding, field.names, {field.value}});
    }
    return values;
}

NamedValue elementOf(const NamedValue& block, std::size_t index) {
    // A block of one is in brackets, an element is not.
    const auto encoding = std::holds_alternative<double>(block.values[index])         ? wire::Encoding::Double
                          : std::holds_alternative<std::int32_t>(block.values[index]) ? wire::Encoding::Int32
                                                                                      : block.encoding;
    return {block.name, encoding, block.names, {block.values[index]}};
}

std::string elementName(const std::string& block, std::size_t index) {
    return block + '[' + std::to_string(index) + ']';
}

std::string textIn(const NamedValue& value) { return wire::describe(value.values, value.encoding, value.names); }

Differences differencesOf(const Happening& first, const Happening& second) {
    Differences found;
    if (first.kind == Kind::Call) {
        compareRequests(first, second, found);
        compareReplies(first, second, found);
    } else if (first.kind == Kind::Event) {
        compareEvents(first, second, found);
    }
    return found;
}

std::string textOf(const Differences& differences) {
    const auto shownValue = [](const std::string& text) { return text.empty() ? std::string("nothing") : text; };
    std::vector<std::string> texts;
    for (const ValueDifference& each : differences) {
        texts.push_back(each.name + ' ' + shownValue(each.firstText) + " -> " + shownValue(each.secondText));
    }
    return joined(texts, "; ");
}

Json documentOf(const Differences& differences) {
    Json document = Json::array();
    for (const ValueDifference& each : differences) {
        document.add({{"in", each.place}, {"name", each.name}, {"first", each.first}, {"second", each.second}});
    }
    return document;
}

} // namespace kelutv::tool
