#include <kelutv/link/TVBaseClient.h>

#include <cstdio>
#include <cstring>

namespace android {

/** Preloaded in place of the client's own: prints the command of each request and answers 0, 7. */
KELUTV_API status_t TVBaseClient::invoke(const Parcel& request, Parcel* reply) {
    // Strict-mode word, length and 24 units of the interface token.
    constexpr size_t kCommandOffset = 4 + 4 + 24 * 2;
    int32_t command = 0;
    std::memcpy(&command, request.data() + kCommandOffset, sizeof command);
    std::printf("%#x\n", static_cast<unsigned>(command));
    const int32_t answer[] = {0, 7};
    return reply->setData(reinterpret_cast<const uint8_t*>(answer), sizeof answer);
}

} // namespace android
