#include "Measurements.h"

#include "bench/peers/Peer.h"
#include "bench/service/Commands.h"
#include "bench/support/Child.h"
#include "bench/support/Failure.h"
#include "bench/support/Figures.h"
#include "bench/support/Pinning.h"
#include "bench/support/Samples.h"
#include "bench/support/Service.h"
#include "bench/support/WireSizes.h"

#include <kelutv/link/TVBaseClient.h>

#include <string>
#include <vector>

namespace kelutv::bench {

namespace {

using android::Parcel;
using android::TVBaseClient;

void ask(size_t bytes) {
    Parcel request;
    request.writeInterfaceToken(android::ITVBaseService::descriptor);
    request.writeInt32(kReplyOfSize);
    request.writeInt32(static_cast<int32_t>(bytes));
    Parcel reply;
    if (TVBaseClient::self()->invoke(request, &reply) != android::NO_ERROR || reply.dataSize() != bytes) {
        giveUp("a reply did not come as it was asked for");
    }
}

void measureReply(size_t bytes, Extent extent) {
    const Service service;
    const auto bare = makeBareExchange(kRequestHead + 4, bytes);
    ask(bytes);
    pinCaller(Pinning::SameCore);
    pinAnswerer(bare->process(), Pinning::SameCore);
    pinAnswerer(service.process(), Pinning::SameCore);
    Samples bareTimes;
    Samples libraryTimes;
    for (int turn = 0; turn < amount(extent, 10, 500); ++turn) {
        bareTimes.time([&bare] { bare->call(); });
        libraryTimes.time([bytes] { ask(bytes); });
    }
    const std::string place = "replies/" + std::to_string(bytes);
    printFigure(place + "/bare_us", bareTimes.median());
    printFigure(place + "/library_us", libraryTimes.median());
    printFigure(place + "/ratio_to_bare", libraryTimes.median() / bareTimes.median());
}

} // namespace

void measureReplies(Extent extent) {
    // The largest is the most that a transport carries.
    const std::vector<size_t> all{4, 64, 1024, 4096, 16384, 65536, 262144, 1040384};
    for (const size_t bytes : amount<std::vector<size_t>>(extent, {4, 1040384}, all)) {
        runApart([&] { measureReply(bytes, extent); });
    }
}

} // namespace kelutv::bench
