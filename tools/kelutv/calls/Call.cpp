#include "tools/kelutv/calls/Call.h"

#include "tools/interposition/Connection.h"
#include "tools/kelutv/calls/Arguments.h"
#include "tools/kelutv/calls/Outputs.h"
#include "tools/kelutv/calls/Thunks.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/service/Collector.h"
#include "tools/kelutv/service/ReplyCheck.h"
#include "tools/kelutv/service/ServiceLink.h"

#include <cstring>

namespace kelutv::tool {

namespace {

/** What the library says of a call to which the service had no objection. */
std::string refusalOf(const wire::Function& function, const CallResult& call) {
    if (function.anyResultIsValue || call.result != -1) {
        return "";
    }
    return call.transactions.empty() ? "the library refused the call, nothing was sent" : "the function gave -1";
}

void checkAnswers(const wire::Function& function, CallResult& call) {
    const std::optional<ReplyFailure> failure = failureIn(call.transactions, function.statusIsValue);
    call.failure = failure ? failure->text : refusalOf(function, call);
    call.answer = failure ? failure->result : std::nullopt;
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
    requireAnswers("the request did not get through", call.transactions);
    checkAnswers(function, call);
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
