#include <kelutv/events.h>
#include <kelutv/link/BpTVBaseService.h>
#include <kelutv/link/DeathNotifier.h>
#include <kelutv/link/ITVBaseService.h>
#include <kelutv/link/TVBaseClient.h>

#include <android/log.h>
#include <binder/Parcel.h>
#include <keluem/emal.h>
#include <kqcommon/ExtPort.h>
#include <utils/String16.h>

namespace {

void onEvent(unsigned int, void*, unsigned int, void*) {}

} // namespace

// Something of each platform library. No service runs here, so the command must come back with the link's failure
// value.
int main() {
    android::Parcel argument;
    argument.writeString16(android::String16("text"));
    __android_log_write(ANDROID_LOG_INFO, "consumer", "linked");
    const bool listens = EMAL_AddListener(KELU_EM_MODE_VOLUME, onEvent) == 0;
    SExtPortPlugInOutInfo port{};
    const bool known = coverSrc2Port(KELU_MW_SRC_HDMI1, &port) == 0;
    return listens && known && android::TVBaseClient::self()->exeCmdSet(1, 2, 3, argument) == -1 ? 0 : 1;
}
