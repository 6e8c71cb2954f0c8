#include "tools/kelutv/conversion/CallText.h"

#include "tools/kelutv/decoding/Decoding.h"
#include "wire/text/Describe.h"

#include <cstdio>
#include <ctime>

namespace kelutv::tool {

namespace {

constexpr int kFirstYear = 1970;
/** With a time and a duration behind it, the nanoseconds since 1970 are no more than a number has room for. */
constexpr int kLastYear = 2150;

} // namespace

std::string nameOf(const wire::Request& request) {
    if (const std::string item = wire::itemNameOf(request); !item.empty()) {
        return item;
    }
    if (request.command != nullptr) {
        return request.command->name;
    }
    char text[24] = "malformed";
    if (request.number) {
        std::snprintf(text, sizeof(text), "0x%X", static_cast<unsigned int>(*request.number));
    }
    return text;
}

std::string replyText(const wire::Request& request, const recording::Transaction& transaction) {
    const wire::Operation& operation = operationFor(request);
    return transaction.reply ? textOf(operation, decodeReply(operation, *transaction.reply))
                             : noReplyText(transaction.status);
}

std::int64_t startOf(const recording::Header& header) {
    std::tm parts{};
    int nanoseconds = 0;
    if (std::sscanf(header.start.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d.%9dZ", &parts.tm_year, &parts.tm_mon, &parts.tm_mday,
                    &parts.tm_hour, &parts.tm_min, &parts.tm_sec, &nanoseconds) != 7 ||
        parts.tm_year < kFirstYear || parts.tm_year > kLastYear || nanoseconds < 0) {
        return 0;
    }
    parts.tm_year -= 1900;
    parts.tm_mon -= 1;
    return static_cast<std::int64_t>(::timegm(&parts)) * 1000000000 + nanoseconds;
}

} // namespace kelutv::tool
