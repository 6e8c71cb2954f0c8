// A television that keeps what it is told, but for the one fault that its argument names.

#include "support/Deadline.h"

#include "wire/codec/Refusal.h"
#include "wire/codec/Reply.h"
#include "wire/codec/Request.h"
#include "wire/codec/Token.h"
#include "wire/events/EventTable.h"
#include "wire/events/Payload.h"

#include <binder/Binder.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <binder/ProcessState.h>
#include <keluem/publisher.h>

#include <sys/prctl.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

namespace kelutv::test {
namespace {

using wire::Result;

/** Those of a machine that has too much to do. */
constexpr std::chrono::milliseconds kTimeOfSlowAnswer{100};
constexpr std::chrono::milliseconds kTimeOfLateEvent{700};

class FaultyBinder : public android::BBinder {
public:
    explicit FaultyBinder(std::string fault) : mFault(std::move(fault)) {}

protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override {
        if (code != FIRST_CALL_TRANSACTION) {
            return has("takes any code") ? reply->writeInt32(0) : BBinder::onTransact(code, data, reply, flags);
        }
        ++mCalls;
        if (has("is slow")) {
            std::this_thread::sleep_for(kTimeOfSlowAnswer);
        }
        const android::status_t status = answer(data, *reply);
        --mCalls;
        return status;
    }

private:
    bool has(const char* fault) const { return mFault == fault; }

    /** Whether another call is under way; one that is about to come is waited for. */
    bool hasCompany() const {
        return eventually([this] { return mCalls > 1; }, std::chrono::milliseconds(2));
    }

    android::status_t answer(const android::Parcel& data, android::Parcel& reply) {
        const bool isMixed = has("mixes answers up") && hasCompany();
        const std::lock_guard<std::mutex> lock(mMutex);
        wire::ByteReader bytes(data.data(), data.dataSize());
        const wire::Request request =
            wire::readToken(bytes) ? wire::readRequestBehindToken(bytes) : wire::requestWithWrongToken(bytes);
        const wire::Reply before = mLast;
        mLast = request.refusal ? refuse(request) : perform(request);
        return wire::writeReply(isMixed ? before : mLast, reply);
    }

    wire::Reply refuse(const wire::Request& request) {
        static const std::map<std::string, Result> overlooked{{"takes any token", Result::WrongToken},
                                                              {"takes less", Result::MissingData},
                                                              {"takes more", Result::TooMuchData},
                                                              {"takes any item", Result::UnknownItem},
                                                              {"takes any command", Result::UnknownCommand}};
        const auto found = overlooked.find(mFault);
        if (found != overlooked.end() && found->second == request.refusal->result) {
            return {};
        }
        if (has("dies of less") && request.refusal->result == Result::MissingData) {
            ::_exit(1);
        }
        if (has("sets what it refuses") && request.refusal->result == Result::TooMuchData) {
            wire::Request whole = request;
            whole.operation = wire::operationOf(*request.command, request.arguments);
            perform(whole);
        }
        return wire::replyTo(*request.refusal);
    }

    wire::Reply perform(const wire::Request& request) {
        const wire::Operation& operation = *request.operation;
        const wire::StateRule& rule = operation.rule;
        if (rule.access == wire::StateRule::Access::None) {
            return wire::replyWith(operation, request.arguments, {});
        }
        auto& kept = mStates[rule.key];
        const wire::Values indexes = wire::valuesOf(rule.indexes, request.arguments);
        if (rule.access == wire::StateRule::Access::Get) {
            return wire::replyWith(operation, request.arguments, kept[indexes]);
        }
        const wire::Values before = kept[indexes];
        const wire::Values values = wire::valuesOf(rule.values, request.arguments);
        wire::Reply reply = set(kept, indexes, values);
        if (std::string("audio.volume") == rule.key->name && kept[indexes] == values) {
            tell(indexes, values, values != before);
        }
        return reply;
    }

    void tell(const wire::Values& indexes, wire::Values values, bool isChange) {
        static const wire::EventTable table(wire::simulatedEvents());
        if (has("tells of another value")) {
            ++std::get<std::int32_t>(values.front());
        }
        const std::string payload =
            wire::payloadOf(indexes) + (has("tells no value") ? std::string() : wire::payloadOf(values));
        const int times = timesToTell(isChange);
        const auto publish = [this, payload, times] {
            for (int i = times; i > 0; --i) {
                mPublisher.publish(table.named("volumeChanged")->first, payload.data(), payload.size());
            }
        };
        if (has("is slow")) {
            std::thread([publish] {
                std::this_thread::sleep_for(kTimeOfLateEvent);
                publish();
            }).detach();
        } else {
            publish();
        }
    }

    int timesToTell(bool isChange) {
        mChanges += isChange ? 1 : 0;
        if (has("tells nothing") || !(isChange || has("tells of no change"))) {
            return 0;
        }
        return has("tells twice") || (has("tells twice of putting back") && mChanges % 2 == 0) ? 2 : 1;
    }

    wire::Reply set(std::map<wire::Values, wire::Values>& kept, const wire::Values& indexes,
                    const wire::Values& values) const {
        if (has("refuses what is set") && kept[indexes] == values) {
            return wire::replyTo({Result::NotStored, ""});
        }
        if (has("forgets")) {
            return {};
        }
        kept[indexes] = values;
        for (auto& [others, theirs] : kept) {
            theirs = has("sets all keys") ? values : theirs;
        }
        return {};
    }

    std::string mFault;
    /** Under way. */
    std::atomic<int> mCalls{0};
    std::mutex mMutex;
    wire::Reply mLast;
    /** Each check changes something and puts it back. */
    int mChanges = 0;
    keluem::Publisher mPublisher;
    std::map<const wire::StateKey*, std::map<wire::Values, wire::Values>> mStates;
};

} // namespace
} // namespace kelutv::test

int main(int /*count*/, char** arguments) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    android::ProcessState::self()->startThreadPool();
    const android::sp<android::IBinder> service = new kelutv::test::FaultyBinder(arguments[1]);
    if (android::defaultServiceManager()->addService(android::String16("TVBaseService"), service) !=
        android::NO_ERROR) {
        return 1;
    }
    std::puts("ready");
    std::fflush(stdout);
    android::IPCThreadState::self()->joinThreadPool();
    return 0;
}
