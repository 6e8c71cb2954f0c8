// The service that is measured against: answers at once, with as little work of its own as can be. Every command
// succeeds; transaction 2 ends the process.

#include "Commands.h"

#include <binder/Binder.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <kelutv/commands.h>

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <numeric>
#include <vector>

namespace {

constexpr int kItemValues = 255;
constexpr int kLargestReply = 1024 * 1024;
constexpr uint32_t kEnd = android::IBinder::FIRST_CALL_TRANSACTION + 1;

android::status_t writeItem(android::Parcel* reply) {
    static const std::vector<int32_t> values = [] {
        std::vector<int32_t> ascending(kItemValues);
        std::iota(ascending.begin(), ascending.end(), 0);
        return ascending;
    }();
    return reply->write(values.data(), values.size() * sizeof(int32_t));
}

/** Goes on behind the result up to `bytes`. */
android::status_t fill(int bytes, android::Parcel* reply) {
    static const std::vector<char> zeros(kLargestReply);
    if (bytes < static_cast<int>(sizeof(int32_t)) || bytes > kLargestReply) {
        return android::BAD_VALUE;
    }
    return reply->write(zeros.data(), static_cast<size_t>(bytes) - sizeof(int32_t));
}

class QuickService : public android::BBinder {
protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override {
        if (code == kEnd) {
            ::_exit(0);
        }
        if (code != FIRST_CALL_TRANSACTION) {
            return BBinder::onTransact(code, data, reply, flags);
        }
        static const android::String16 interface("android.ITVBaseService");
        if (!data.enforceInterface(interface)) {
            return android::PERMISSION_DENIED;
        }
        reply->writeInt32(0);
        const int command = data.readInt32();
        if (command == CMD_AUDIO_COMMON_GET_ITEM_VALUE) {
            return writeItem(reply);
        }
        if (command == kelutv::bench::kReplyOfSize) {
            return fill(data.readInt32(), reply);
        }
        return android::NO_ERROR;
    }
};

} // namespace

int main() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const android::status_t status =
        android::defaultServiceManager()->addService(android::String16("TVBaseService"), new QuickService);
    if (status != android::NO_ERROR) {
        std::fprintf(stderr, "kelutv-quick-service: cannot register TVBaseService: status %d\n", status);
        return 1;
    }
    android::IPCThreadState::self()->joinThreadPool();
}
