#pragma once

#include "support/Wire.h"

#include <binder/Binder.h>
#include <binder/Parcel.h>

#include <condition_variable>
#include <map>
#include <mutex>
#include <vector>

namespace kelutv::test {

/** The object behind the scripted service's name; ScriptedService.h tells what each control does. */
class ScriptedBinder : public android::BBinder {
protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override;

private:
    enum class Exit { Never, BeforeReply, AfterReply };

    android::status_t answer(const android::Parcel& data, android::Parcel* reply);
    android::status_t obey(uint32_t code, const android::Parcel& data, android::Parcel* reply);
    const Bytes& replyTo(const android::Parcel& request) const;
    void hang(std::unique_lock<std::mutex>& lock);
    void writeRequests(android::Parcel* reply);

    std::mutex mMutex;
    std::condition_variable mChanged;
    std::vector<Bytes> mRequests;
    Bytes mReply = replyOf({0});
    std::map<std::int32_t, Bytes> mReplies;
    android::status_t mStatus = android::NO_ERROR;
    Exit mExit = Exit::Never;
    bool mHangNext = false;
    bool mHanging = false;
    int mCallerUid = -1;
    int mCallerPid = -1;
};

} // namespace kelutv::test
