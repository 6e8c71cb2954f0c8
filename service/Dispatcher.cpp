#include "service/Dispatcher.h"

#include "service/ReplyForm.h"
#include "wire/text/Shown.h"

#include <cxxabi.h>

#include <algorithm>
#include <new>
#include <stdexcept>

namespace kelutv::service {

namespace {

bool hasCommands(const std::string& module) {
    const wire::Rows<wire::Command> commands = wire::allCommands();
    return std::any_of(commands.begin(), commands.end(),
                       [&module](const wire::Command& each) { return each.module == module; });
}

wire::Reply wireReplyOf(const wire::Request& request, const Reply& reply) {
    if (reply.result() != 0) {
        return {reply.result(), reply.why(), {}};
    }
    if (request.operation->shape == wire::Shape::Status && reply.values().size() == 1) {
        const auto* const status = std::get_if<std::int32_t>(reply.values().data());
        if (status != nullptr) {
            return {*status, "", {}};
        }
    }
    return replyHolding(*request.operation, reply.values());
}

} // namespace

void Dispatcher::handle(const std::string& module, Handler handler) {
    if (!hasCommands(module)) {
        throw std::invalid_argument("no module " + wire::shown(module) + " has commands");
    }
    mHandlers.insert_or_assign(module, std::move(handler));
}

std::optional<wire::Reply> Dispatcher::answer(const wire::Request& request) {
    if (request.refusal) {
        return mHasEnded ? std::nullopt : std::optional(wire::replyTo(*request.refusal));
    }
    const std::lock_guard<std::mutex> lock(mMutex);
    if (mHasEnded) {
        return std::nullopt;
    }
    try {
        wire::Reply reply = carryOut(request);
        const std::string flaw = flawOf(request, reply);
        return flaw.empty() ? reply : failure(request, flaw);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        return failure(request, error.what());
    } catch (const abi::__forced_unwind&) {
        // The thread ends.
        throw;
    } catch (...) {
        return failure(request, "the handler threw what is no std::exception");
    }
}

void Dispatcher::end() {
    const std::lock_guard<std::mutex> lock(mMutex);
    mHasEnded = true;
    mHandlers.clear();
}

android::status_t Dispatcher::serve(const wire::Request& request, const android::Parcel& /*data*/,
                                    android::Parcel* reply) {
    const std::optional<wire::Reply> answered = answer(request);
    if (!answered) {
        return android::DEAD_OBJECT;
    }
    return reply != nullptr ? wire::writeReply(*answered, *reply) : android::NO_ERROR;
}

wire::Reply Dispatcher::carryOut(const wire::Request& request) {
    const auto handler = mHandlers.find(request.command->module);
    return wireReplyOf(request,
                       handler != mHandlers.end() ? handler->second(Request(request), *mEvents) : Reply::refused());
}

wire::Reply Dispatcher::failure(const wire::Request& request, const std::string& why) {
    mComplain(std::string(request.command->name) + " was not answered: " + why);
    return wire::replyTo({wire::Result::Failed, why});
}

} // namespace kelutv::service
