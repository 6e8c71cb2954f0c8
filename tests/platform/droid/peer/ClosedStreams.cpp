#include "ClosedStreams.h"

#include "PeerProtocol.h"
#include "platform/droid/Calls.h"

#include <android/log.h>

#include <unistd.h>

namespace kelutv::test {

int callWithoutStreams(const std::vector<std::string>& arguments) {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        ::close(stream);
    }
    const android::sp<android::IBinder> binder = service(arguments.at(0));
    for (int32_t round = 1; round <= 3; ++round) {
        __android_log_write(ANDROID_LOG_ERROR, "peer", "nobody reads this");
        if (call(binder, kEcho, replyOf({round})).bytes != replyOf({round})) {
            return 10 + round;
        }
    }
    return 0;
}

} // namespace kelutv::test
