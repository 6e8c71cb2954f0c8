#include "tools/kelutv/calls/Call.h"

#include "tools/interposition/Connection.h"
#include "tools/kelutv/calls/Arguments.h"
#include "tools/kelutv/calls/Outputs.h"
#include "tools/kelutv/calls/Thunks.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/service/Collector.h"
#include "tools/kelutv/service/ServiceLink.h"

#include <cstring>

namespace kelutv::tool {

namespace {

std::string transactionFailure(const wire::Function& function, const interposition::Transaction& transaction) {
    std::int32_t word = 0;
    if (transaction.reply.size() < sizeof word) {
        return "the service's answer has no result";
    }
    std::memcpy(&word, transaction.reply.data(), sizeof word);
    return word == 0 || function.statusIsValue ? "" : "the service answered " + std::to_string(word);
}

void checkLink(const CallResult& call) {
    for (const interposition::Transaction& transaction : call.transactions) {
        if (transaction.status != 0) {
            throw LinkError("the request did not get through: the service is gone or did not take it (status " +
                            std::to_string(transaction.status) + ')');
        }
    }
}

std::string failureOf(const wire::Function& function, const CallResult& call) {
    for (const interposition::Transaction& transaction : call.transactions) {
        const std::string failure = transactionFailure(function, transaction);
        if (!failure.empty()) {
            return failure;
        }
    }
    if (function.anyResultIsValue || call.result != -1) {
        return "";
    }
    return call.transactions.empty() ? "the library refused the call, nothing was sent" : "the function gave -1";
}

CallResult make(const wire::Function& function, CallFrame frame) {
    CallResult call;
    {
        const Collector collector(call.transactions);
        thunkOf(function)(frame);
    }
    call.result = resultOf(function, frame);
    call.outputs = outputsOf(function, frame);
    return call;
}

/** Whether the function has anything to do with the service, a command or events. */
bool needsService(const wire::Function& function) {
    return function.requests.size() > 0 || std::strcmp(function.module, "notify") == 0;
}

} // namespace

CallResult tryFunction(const wire::Function& function, const std::vector<std::string>& arguments) {
    CallFrame frame = frameOf(function, arguments);
    if (needsService(function)) {
        requireService();
    }
    CallResult call = make(function, std::move(frame));
    checkLink(call);
    call.failure = failureOf(function, call);
    return call;
}

CallResult callFunction(const wire::Function& function, const std::vector<std::string>& arguments) {
    CallResult call = tryFunction(function, arguments);
    if (!call.failure.empty()) {
        throw ServiceError(std::string(function.shortName) + ": " + call.failure);
    }
    return call;
}

std::vector<std::vector<std::uint8_t>> requestsOf(const wire::Function& function,
                                                  const std::vector<std::string>& arguments) {
    CallFrame frame = frameOf(function, arguments);
    const interposition::StubbedService stubbed;
    std::vector<std::vector<std::uint8_t>> requests;
    for (interposition::Transaction& transaction : make(function, std::move(frame)).transactions) {
        requests.push_back(std::move(transaction.request));
    }
    return requests;
}

} // namespace kelutv::tool
