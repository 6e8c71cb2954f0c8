#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace kelutv::recording {

using Bytes = std::vector<std::uint8_t>;

/** The format that is written; files of a later one are refused. */
constexpr std::int64_t kFormat = 1;

/** The most nanoseconds that a time or a duration has, some 36 years, so that several can be added up. */
constexpr std::int64_t kMostTime = std::int64_t{1} << 60;

/** Begins a section: what was recorded by one recorder, with a clock and a numbering of its own. */
struct Header {
    std::int64_t format = kFormat;
    /** The library's version. */
    std::string library;
    /** `wire::interfaceFingerprint()` of the recorder: by which catalogue the decoded forms are. */
    std::string catalogue;
    /** The interface token in the form of the platform. */
    Bytes token;
    /** `armv7l`, as uname(2) says. */
    std::string machine;
    /** `Linux 5.10.0`. */
    std::string system;
    bool isLittleEndian = true;
    /** Time 0 of the section: `2026-11-22T13:55:01.123456789Z`. */
    std::string start;
};

/** When and where something happened. */
struct Moment {
    /** Ascends in a section. */
    std::int64_t sequence = 0;
    /** Nanoseconds since the start of the section, by a clock that nobody sets; negative before that. */
    std::int64_t time = 0;
    std::int32_t process = 0;
    std::int32_t thread = 0;
};

/** A request and what came of it; lines come in the order of their ends. */
struct Transaction {
    Moment moment;
    /** In nanoseconds. */
    std::int64_t duration = 0;
    /** The transport's: 0 when a reply came. */
    std::int32_t status = 0;
    Bytes request;
    /** Nothing when none came. */
    std::optional<Bytes> reply;
    /** A JSON text for people and scripts; empty for none. The bytes are what counts. */
    std::string decoded;
};

/** An event that a process was given. */
struct Event {
    Moment moment;
    std::uint32_t event = 0;
    Bytes payload;
    /** As that of a transaction. */
    std::string decoded;
};

/** A process was told that the service is gone. */
struct Loss {
    Moment moment;
};

/** So many transactions and events are missing here, since the recorder did not take them in time. */
struct Gap {
    std::int64_t sequence = 0;
    std::int64_t time = 0;
    /** From 1 to 2^32 - 1. */
    std::int64_t count = 0;
};

/** The section was ended in order; one without this line was cut off with its recorder. */
struct End {
    std::int64_t sequence = 0;
    std::int64_t time = 0;
    /** `program`, `signal`, `time`, `size` or `disk`. */
    std::string reason;
};

/** A line of a kind that this version does not know. */
struct Unknown {
    std::string kind;
};

/** One line of a recording. */
struct Line {
    std::variant<Header, Transaction, Event, Loss, Gap, End, Unknown> content;
    /** The members that this version does not know, in order, each with its JSON text. */
    std::vector<std::pair<std::string, std::string>> others = {};
};

/** What is wrong with a line. */
class LineError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/** The line as a JSON text, without a line end. What is not UTF-8 is replaced. */
std::string textOf(const Line& line);

/** @throws LineError when the text is not a line of a recording: what is wrong, and what is allowed */
Line lineOf(const std::string& text);

/** When something happened; null for a header and an unknown line. */
const std::int64_t* timeOf(const Line& line);

/** As `timeOf`. */
const std::int64_t* sequenceOf(const Line& line);

/** Null for what belongs to no process. */
const Moment* momentOf(const Line& line);

} // namespace kelutv::recording
