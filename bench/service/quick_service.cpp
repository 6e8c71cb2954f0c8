// The service that is measured against: answers at once, with as little work of its own as can be. Every command
// succeeds; transaction 2 ends the process.

#include <binder/Binder.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <kelutv/commands.h>

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

namespace {

constexpr int kItemValues = 255;
constexpr uint32_t kEnd = android::IBinder::FIRST_CALL_TRANSACTION + 1;

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
        if (data.readInt32() == CMD_AUDIO_COMMON_GET_ITEM_VALUE) {
            for (int value = 0; value < kItemValues; ++value) {
                reply->writeInt32(value);
            }
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
