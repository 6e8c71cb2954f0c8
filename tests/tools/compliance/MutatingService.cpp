#include "tools/compliance/MutatingService.h"

#include "wire/codec/Reply.h"

namespace kelutv::test {

namespace {

Asked askedBy(const wire::Request& request) {
    return {request.command->value,
            request.command->hasItems ? std::get<std::int32_t>(request.arguments.front().front()) : 0};
}

} // namespace

MutatingService::MutatingService() : mTelevision(simulator::Configuration::standard()) {}

void MutatingService::mutate(const Asked& asked, Mutation mutation) {
    const std::lock_guard<std::mutex> lock(mMutex);
    mAsked = asked;
    mMutation = std::move(mutation);
    mHasChanged = false;
}

void MutatingService::mend() {
    const std::lock_guard<std::mutex> lock(mMutex);
    mMutation = nullptr;
}

std::map<Asked, Bytes> MutatingService::takeReplies() {
    const std::lock_guard<std::mutex> lock(mMutex);
    return std::exchange(mReplies, {});
}

bool MutatingService::takeChange() {
    const std::lock_guard<std::mutex> lock(mMutex);
    return std::exchange(mHasChanged, false);
}

android::status_t MutatingService::serve(const wire::Request& request, const android::Parcel& /*data*/,
                                         android::Parcel* reply) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const wire::Reply answered = request.refusal ? wire::replyTo(*request.refusal) : mTelevision.perform(request);
    if (const android::status_t status = wire::writeReply(answered, *reply); status != android::NO_ERROR) {
        return status;
    }
    if (request.refusal) {
        return android::NO_ERROR;
    }
    const Asked asked = askedBy(request);
    const Bytes right(reply->data(), reply->data() + reply->dataSize());
    mReplies[asked] = right;
    if (!mMutation || asked != mAsked) {
        return android::NO_ERROR;
    }
    const Bytes changed = mMutation(right);
    mHasChanged = mHasChanged || changed != right;
    return reply->setData(changed.data(), changed.size());
}

} // namespace kelutv::test
