#include "tools/kelutv/conversion/CallText.h"

#include "tools/kelutv/decoding/Decoding.h"
#include "wire/text/Describe.h"
#include "wire/text/ResultNames.h"

#include <cstdio>
#include <ctime>

namespace kelutv::tool {

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
                             : "no reply: status " + wire::statusText(transaction.status);
}

std::int64_t startOf(const recording::Header& header) {
    std::tm parts{};
    int nanoseconds = 0;
    if (std::sscanf(header.start.c_str(), "%d-%d-%dT%d:%d:%d.%9dZ", &parts.tm_year, &parts.tm_mon, &parts.tm_mday,
                    &parts.tm_hour, &parts.tm_min, &parts.tm_sec, &nanoseconds) != 7) {
        return 0;
    }
    parts.tm_year -= 1900;
    parts.tm_mon -= 1;
    return static_cast<std::int64_t>(::timegm(&parts)) * 1000000000 + nanoseconds;
}

} // namespace kelutv::tool
