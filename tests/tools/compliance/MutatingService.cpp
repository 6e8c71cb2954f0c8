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

void MutatingService::mutateRefusals(Mutation mutation) {
    const std::lock_guard<std::mutex> lock(mMutex);
    mMutationOfRefusals = std::move(mutation);
}

void MutatingService::mend() {
    const std::lock_guard<std::mutex> lock(mMutex);
    mMutation = nullptr;
    mMutationOfRefusals = nullptr;
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
    const Bytes right(reply->data(), reply->data() + reply->dataSize());
    if (request.refusal) {
        return answer(mMutationOfRefusals, right, *reply);
    }
    const Asked asked = askedBy(request);
    mReplies[asked] = right;
    return answer(asked == mAsked ? mMutation : nullptr, right, *reply);
}

/** Answers with what the change makes of the right reply. */
android::status_t MutatingService::answer(const Mutation& mutation, const Bytes& right, android::Parcel& reply) {
    if (!mutation) {
        return android::NO_ERROR;
    }
    const Bytes changed = mutation(right);
    mHasChanged = mHasChanged || changed != right;
    return reply.setData(changed.data(), changed.size());
}

} // namespace kelutv::test
