#pragma once

#include <binder/Binder.h>

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <vector>

namespace kelutv::test {

/** Bytes that differ from their neighbours and from page to page. */
std::vector<std::uint8_t> pattern(std::size_t size);

/** The object that a peer serves; see PeerCall. */
class PeerService : public android::BBinder {
public:
    const android::String16& getInterfaceDescriptor() const override;

protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override;

private:
    android::status_t meet(int32_t callers, android::Parcel* reply);
    void hold();
    void note(int32_t value);
    void writeNotes(android::Parcel* reply);

    std::mutex mMutex;
    std::condition_variable mChanged;
    int mInside = 0;
    int mHeld = 0;
    int mReleases = 0;
    std::vector<int32_t> mNotes;
};

} // namespace kelutv::test
