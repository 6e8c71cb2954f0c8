#include "fuzz/support/Answers.h"

#include "droid/BpBinder.h"
#include "droid/ReceivedParcel.h"
#include "droid/Transport.h"

#include <memory>
#include <string>
#include <utility>

namespace kelutv::fuzz {
namespace {

using android::Parcel;
using android::status_t;

Answerer& answerer() {
    static auto* const current = new Answerer;
    return *current;
}

class AnsweringObject : public android::RemoteObject {
public:
    status_t transact(uint32_t, const Parcel& data, Parcel* reply, uint32_t) override {
        const Answer answer = answerer()(data);
        if (answer.status == android::NO_ERROR) {
            android::ReceivedParcel::adopt(
                reply, exactCopyOf(answer.reply).release(), answer.reply.size(),
                [](void*, const uint8_t* bytes) { delete[] bytes; }, nullptr);
        }
        return answer.status;
    }

    status_t watch(std::function<void()>) override { return android::NO_ERROR; }
};

class AnsweringTransport : public android::Transport {
public:
    android::sp<android::IBinder> find(const android::String16&) override {
        return new android::BpBinder(std::make_unique<AnsweringObject>());
    }
    android::sp<android::IBinder> waitFor(const android::String16& name, std::chrono::milliseconds) override {
        return find(name);
    }
    status_t publish(const android::String16&, const android::sp<android::BBinder>&,
                     const android::ServiceTraits&) override {
        return android::INVALID_OPERATION;
    }
    std::string place() const override { return ""; }
    android::Vector<android::String16> names(int) override { return {}; }
    bool serve() override { return false; }
};

} // namespace

void answerBy(Answerer wanted) { answerer() = std::move(wanted); }

} // namespace kelutv::fuzz

/** In place of the platform's own choice. */
android::Transport& android::Transport::get() {
    static auto* const transport = new kelutv::fuzz::AnsweringTransport;
    return *transport;
}
