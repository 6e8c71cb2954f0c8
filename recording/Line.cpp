// All that includes the headers of the JSON library, which are slow to compile.
#include "recording/Line.h"

#include "wire/text/Hexadecimal.h"
#include "wire/text/Quote.h"
#include "wire/text/Shown.h"

#include <nlohmann/json.hpp>

#include <limits>
#include <set>
#include <type_traits>

namespace kelutv::recording {

namespace {

using Json = nlohmann::ordered_json;

/** Deeper than any line that is written. */
constexpr int kDeepest = 32;

std::string textOfJson(const Json& value) { return value.dump(-1, ' ', false, Json::error_handler_t::replace); }

/** The members of one line, taken one by one. */
class Members {
public:
    explicit Members(const Json& object) : mObject(object) {}

    std::int64_t number(const char* name, std::int64_t least = 0,
                        std::int64_t most = std::numeric_limits<std::int64_t>::max()) {
        const Json& value = taken(name);
        const bool fits = value.is_number_integer() &&
                          (!value.is_number_unsigned() ||
                           value.get<std::uint64_t>() <= std::uint64_t{std::numeric_limits<std::int64_t>::max()});
        if (!fits || value.get<std::int64_t>() < least || value.get<std::int64_t>() > most) {
            refuse(name, "a whole number from " + std::to_string(least) + " to " + std::to_string(most), value);
        }
        return value.get<std::int64_t>();
    }

    std::int32_t word(const char* name, std::int32_t least = std::numeric_limits<std::int32_t>::min()) {
        return static_cast<std::int32_t>(number(name, least, std::numeric_limits<std::int32_t>::max()));
    }

    std::string text(const char* name) {
        const Json& value = taken(name);
        if (!value.is_string()) {
            refuse(name, "a text", value);
        }
        return value.get<std::string>();
    }

    Bytes bytes(const char* name) {
        const auto bytes = wire::bytesOfHexadecimal(text(name));
        if (!bytes) {
            refuse(name, "pairs of hexadecimal digits", mObject.at(name));
        }
        return *bytes;
    }

    std::optional<Bytes> bytesOrNull(const char* name) {
        return taken(name).is_null() ? std::nullopt : std::optional<Bytes>(bytes(name));
    }

    /** The JSON text of what may be missing; empty when it is. */
    std::string optional(const char* name) {
        mTaken.insert(name);
        return mObject.contains(name) ? textOfJson(mObject.at(name)) : "";
    }

    std::vector<std::pair<std::string, std::string>> others() const {
        std::vector<std::pair<std::string, std::string>> others;
        for (const auto& [name, value] : mObject.items()) {
            if (mTaken.count(name) == 0) {
                others.emplace_back(name, textOfJson(value));
            }
        }
        return others;
    }

private:
    const Json& taken(const char* name) {
        mTaken.insert(name);
        if (!mObject.contains(name)) {
            throw LineError(wire::inQuotes(name) + " is missing");
        }
        return mObject.at(name);
    }

    [[noreturn]] static void refuse(const char* name, const std::string& wanted, const Json& value) {
        throw LineError(wire::inQuotes(name) + " needs " + wanted + ", not " + wire::shown(textOfJson(value)));
    }

    const Json& mObject;
    std::set<std::string> mTaken;
};

Header headerOf(Members& members) {
    Header header;
    header.format = members.number("format", 1);
    if (header.format > kFormat) {
        throw LineError("the recording has format " + std::to_string(header.format) +
                        ", and this version knows formats up to " + std::to_string(kFormat));
    }
    header.library = members.text("library");
    header.catalogue = members.text("catalogue");
    header.token = members.bytes("token");
    header.machine = members.text("machine");
    header.system = members.text("system");
    const std::string order = members.text("byteOrder");
    if (order != "little" && order != "big") {
        throw LineError("\"byteOrder\" needs \"little\" or \"big\", not " + wire::inQuotes(wire::shown(order)));
    }
    header.isLittleEndian = order == "little";
    header.start = members.text("start");
    return header;
}

std::int64_t timeIn(Members& members) { return members.number("time", -kMostTime, kMostTime); }

Moment readMoment(Members& members) {
    const std::int64_t sequence = members.number("sequence", 1);
    const std::int64_t time = timeIn(members);
    const std::int32_t process = members.word("process", 1);
    return {sequence, time, process, members.word("thread", 1)};
}

Transaction transactionOf(Members& members) {
    Transaction transaction;
    transaction.moment = readMoment(members);
    transaction.duration = members.number("duration", 0, kMostTime);
    transaction.status = members.word("status");
    transaction.request = members.bytes("request");
    transaction.reply = members.bytesOrNull("reply");
    if (transaction.reply.has_value() != (transaction.status == 0)) {
        throw LineError("\"reply\" needs bytes when \"status\" is 0, and null when it is not");
    }
    transaction.decoded = members.optional("decoded");
    return transaction;
}

Event eventOf(Members& members) {
    Event event;
    event.moment = readMoment(members);
    event.event = static_cast<std::uint32_t>(members.number("event", 0, std::numeric_limits<std::uint32_t>::max()));
    event.payload = members.bytes("payload");
    event.decoded = members.optional("decoded");
    return event;
}

Gap gapOf(Members& members) {
    const std::int64_t sequence = members.number("sequence", 1);
    const std::int64_t time = timeIn(members);
    return {sequence, time, members.number("count", 1, std::numeric_limits<std::uint32_t>::max())};
}

End endOf(Members& members) {
    const std::int64_t sequence = members.number("sequence", 1);
    const std::int64_t time = timeIn(members);
    return {sequence, time, members.text("reason")};
}

Line lineOf(Members members) {
    Line line;
    const std::string kind = members.text("kind");
    if (kind == "header") {
        line.content = headerOf(members);
    } else if (kind == "transaction") {
        line.content = transactionOf(members);
    } else if (kind == "event") {
        line.content = eventOf(members);
    } else if (kind == "loss") {
        line.content = Loss{readMoment(members)};
    } else if (kind == "gap") {
        line.content = gapOf(members);
    } else if (kind == "end") {
        line.content = endOf(members);
    } else {
        line.content = Unknown{kind};
    }
    line.others = members.others();
    return line;
}

/** Refuses what the parser takes: any depth, and a member that an object has twice, of which it would keep the last. */
Json parsed(const std::string& text) {
    std::vector<std::set<std::string>> names;
    const auto guard = [&names](int depth, Json::parse_event_t event, const Json& value) {
        if (depth > kDeepest) {
            throw LineError("objects and lists are nested more than " + std::to_string(kDeepest) + " deep");
        }
        if (event == Json::parse_event_t::object_start) {
            names.emplace_back();
        } else if (event == Json::parse_event_t::object_end) {
            names.pop_back();
        } else if (event == Json::parse_event_t::key && !names.back().insert(value.get<std::string>()).second) {
            throw LineError(wire::inQuotes(wire::shown(value.get<std::string>())) + " is given twice in one object");
        }
        return true;
    };
    try {
        return Json::parse(text, guard);
    } catch (const Json::exception& error) {
        const std::string reason = error.what();
        throw LineError("this is not JSON: " + wire::shown(reason.substr(reason.find("] ") + 2)));
    }
}

Json writtenMoment(const char* kind, const Moment& moment) {
    return {{"kind", kind},
            {"sequence", moment.sequence},
            {"time", moment.time},
            {"process", moment.process},
            {"thread", moment.thread}};
}

void addText(Json& line, const char* name, const std::string& text) {
    if (!text.empty()) {
        line[name] = Json::parse(text);
    }
}

Json written(const Header& header) {
    return {{"kind", "header"},
            {"format", header.format},
            {"library", header.library},
            {"catalogue", header.catalogue},
            {"token", wire::hexadecimalOf(header.token)},
            {"machine", header.machine},
            {"system", header.system},
            {"byteOrder", header.isLittleEndian ? "little" : "big"},
            {"start", header.start}};
}

Json written(const Transaction& transaction) {
    Json line = writtenMoment("transaction", transaction.moment);
    line["duration"] = transaction.duration;
    line["status"] = transaction.status;
    line["request"] = wire::hexadecimalOf(transaction.request);
    line["reply"] = transaction.reply ? Json(wire::hexadecimalOf(*transaction.reply)) : Json();
    addText(line, "decoded", transaction.decoded);
    return line;
}

Json written(const Event& event) {
    Json line = writtenMoment("event", event.moment);
    line["event"] = event.event;
    line["payload"] = wire::hexadecimalOf(event.payload);
    addText(line, "decoded", event.decoded);
    return line;
}

Json written(const Loss& loss) { return writtenMoment("loss", loss.moment); }

Json written(const Gap& gap) {
    return {{"kind", "gap"}, {"sequence", gap.sequence}, {"time", gap.time}, {"count", gap.count}};
}

Json written(const End& end) {
    return {{"kind", "end"}, {"sequence", end.sequence}, {"time", end.time}, {"reason", end.reason}};
}

Json written(const Unknown& unknown) { return {{"kind", unknown.kind}}; }

} // namespace

std::string textOf(const Line& line) {
    Json text = std::visit([](const auto& content) { return written(content); }, line.content);
    for (const auto& [name, value] : line.others) {
        addText(text, name.c_str(), value);
    }
    return textOfJson(text);
}

Line lineOf(const std::string& text) {
    const Json value = parsed(text);
    if (!value.is_object()) {
        throw LineError("an object is needed, not " + wire::shown(textOfJson(value)));
    }
    return lineOf(Members(value));
}

const Moment* momentOf(const Line& line) {
    return std::visit(
        [](const auto& content) -> const Moment* {
            using Content = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<Content, Transaction> || std::is_same_v<Content, Event> ||
                          std::is_same_v<Content, Loss>) {
                return &content.moment;
            }
            return nullptr;
        },
        line.content);
}

const std::int64_t* timeOf(const Line& line) {
    if (const Moment* const moment = momentOf(line)) {
        return &moment->time;
    }
    if (const auto* const gap = std::get_if<Gap>(&line.content)) {
        return &gap->time;
    }
    const auto* const end = std::get_if<End>(&line.content);
    return end != nullptr ? &end->time : nullptr;
}

const std::int64_t* sequenceOf(const Line& line) {
    if (const Moment* const moment = momentOf(line)) {
        return &moment->sequence;
    }
    if (const auto* const gap = std::get_if<Gap>(&line.content)) {
        return &gap->sequence;
    }
    const auto* const end = std::get_if<End>(&line.content);
    return end != nullptr ? &end->sequence : nullptr;
}

} // namespace kelutv::recording
