#include "tools/kelutv/trace/TransactionText.h"

#include "wire/text/Describe.h"

#include <binder/IBinder.h>

#include <chrono>
#include <cstdio>

namespace kelutv::tool {

std::string callerText(std::int32_t process, std::int32_t thread) {
    return '[' + std::to_string(process) + (thread == process ? "" : ':' + std::to_string(thread)) + "] ";
}

std::string lineOf(const TracedTransaction& transaction, const DecodedRequest& decoded) {
    const wire::Operation& operation = operationFor(decoded.request);
    char duration[32];
    std::snprintf(duration, sizeof(duration), " <%.6f>", std::chrono::duration<double>(transaction.duration).count());
    return wire::describe(decoded.request) + (decoded.flaw ? " [" + textOf(*decoded.flaw) + ']' : "") + " -> " +
           (transaction.status != android::NO_ERROR ? noReplyText(transaction.status)
                                                    : textOf(operation, decodeReply(operation, transaction.reply))) +
           duration;
}

} // namespace kelutv::tool
