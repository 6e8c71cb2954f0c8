#include "fuzz/support/Target.h"

#include "recording/Reader.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "wire/text/Describe.h"

#include <sstream>
#include <string>

/** Recordings: each line is refused with its place, or is written as it was read, and its bytes can be decoded. */
namespace kelutv::fuzz {
namespace {

using namespace recording;

void decode(const Transaction& transaction) {
    const tool::DecodedRequest decoded = tool::decodeRequest(transaction.request);
    wire::describe(decoded.request);
    if (transaction.reply) {
        const wire::Operation& operation = tool::operationFor(decoded.request);
        tool::textOf(operation, tool::decodeReply(operation, *transaction.reply));
    }
}

void look(const Line& line) {
    const std::string text = textOf(line);
    require(textOf(lineOf(text)) == text, "a line that is written is read as the same");
    if (const std::int64_t* const time = timeOf(line)) {
        require(*time >= -kMostTime && *time <= kMostTime, "times can be added up");
    }
    if (const auto* const header = std::get_if<Header>(&line.content)) {
        require(header->format >= 1 && header->format <= kFormat, "no later format is taken for this one");
    }
    if (const auto* const transaction = std::get_if<Transaction>(&line.content)) {
        require(transaction->reply.has_value() == (transaction->status == 0), "there is a reply where one came");
        require(transaction->duration >= 0 && transaction->duration <= kMostTime, "durations can be added up");
        decode(*transaction);
    }
}

/** @return whether there may be more lines */
bool lookAtNext(Reader& reader) {
    try {
        const std::optional<Line> line = reader.next();
        if (line) {
            look(*line);
        }
        return line.has_value();
    } catch (const LineError& error) {
        const std::string place = reader.name() + ':' + std::to_string(reader.number()) + ": ";
        require(std::string(error.what()).compare(0, place.size(), place) == 0, "a refusal names its line");
        return true;
    }
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream input(std::string(data, data + size));
    kelutv::recording::Reader reader(input, "recording");
    while (kelutv::fuzz::lookAtNext(reader)) {
    }
    return 0;
}
