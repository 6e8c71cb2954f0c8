// Makes as many calls as the first argument says; with "end" as the second it then ends the service.

#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <kelutv/kelutv.h>

#include <cstdlib>
#include <cstring>

namespace {

constexpr uint32_t kEnd = android::IBinder::FIRST_CALL_TRANSACTION + 1;

void endService() {
    const android::sp<android::IBinder> service =
        android::defaultServiceManager()->getService(android::String16("TVBaseService"));
    const android::Parcel nothing;
    service->transact(kEnd, nothing, nullptr);
}

} // namespace

int main(int argc, char** argv) {
    const int calls = argc > 1 ? std::atoi(argv[1]) : 0;
    int failures = 0;
    for (int call = 0; call < calls; ++call) {
        failures += linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, call % 100) == 0 ? 0 : 1;
    }
    if (argc > 2 && std::strcmp(argv[2], "end") == 0) {
        endService();
    }
    return failures == 0 ? 0 : 1;
}
