#include "Measurements.h"

#include "bench/peers/Peer.h"
#include "bench/support/Failure.h"
#include "bench/support/Figures.h"
#include "bench/support/Pinning.h"
#include "bench/support/Samples.h"
#include "bench/support/Service.h"
#include "bench/support/WireSizes.h"

#include <kelutv/Audio.h>
#include <kelutv/kelutv.h>
#include <kelutv/link/TVBaseClient.h>

#include <unistd.h>

#include <functional>
#include <string>
#include <vector>

namespace kelutv::bench {

namespace {

using android::Parcel;
using android::TVBaseClient;

/** A finished request of setVolume, to send again and again. */
void prepare(Parcel* request) {
    request->writeInterfaceToken(android::String16("android.ITVBaseService"));
    request->writeInt32(CMD_AUDIO_SETVOLUME);
    request->writeInt32(KELU_TV_AUDIO_CHANNEL_SPEAKER);
    request->writeInt32(20);
}

/** A call that fails may take less time than any other. */
void succeed(int result) {
    if (result != 0) {
        giveUp("a call failed");
    }
}

/** One kind of call, and which other one it is held against. */
struct Kind {
    std::string name;
    size_t floor;
    std::function<void()> call;
    Samples samples{};
};

/** All kinds of call; those that this holds run before the process uses the library. */
class Kinds {
public:
    Kinds() {
        prepare(&mRequest);
        mKinds.push_back({"bare", kBare, [this] { mBare->call(); }});
        mKinds.push_back({"bare_item", kBareItem, [this] { mBareItem->call(); }});
        mKinds.push_back({"invoke", kBare, [this] {
                              Parcel reply;
                              succeed(TVBaseClient::self()->getBpTvbaseService()->invoke(mRequest, &reply));
                          }});
        mKinds.push_back(
            {"set_volume", kBare, [] { succeed(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 20)); }});
        mKinds.push_back({"item_read", kBareItem, [this] {
                              succeed(linux_tv_Audio_getAudioItemValue(CMDID_AUDIO_GET_MAX_VOLUME, 0, 0, mItems));
                          }});
        mKinds.push_back({"parcel_set", kBare, [] { succeed(Audio::instance()->setPreScale(0, PreScaleInfo{1, 2})); }});
        for (const auto& peer : mPeers) {
            mKinds.push_back({peer->name(), kBare, [&peer] { peer->call(); }});
        }
    }
    Kinds(const Kinds&) = delete;
    Kinds& operator=(const Kinds&) = delete;

    /** Every kind makes a few calls in turn, so that all of them meet the same machine. */
    void measure(Pinning pinning, int turns) {
        for (Kind& kind : mKinds) {
            kind.call();
            kind.samples = {};
        }
        pin(pinning);
        for (int turn = 0; turn < turns; ++turn) {
            for (Kind& kind : mKinds) {
                kind.samples.time(kind.call);
            }
        }
    }

    void print(const std::string& path) const {
        for (const Kind& kind : mKinds) {
            const std::string place = path + "/" + kind.name;
            printFigure(place + "/p50_us", kind.samples.median());
            printFigure(place + "/p99_us", kind.samples.percentile(0.99));
            printFigure(place + "/ratio_to_bare", kind.samples.median() / mKinds[kind.floor].samples.median());
        }
    }

private:
    static constexpr size_t kBare = 0;
    static constexpr size_t kBareItem = 1;

    void pin(Pinning pinning) {
        pinCaller(pinning);
        pinAnswerer(mBare->process(), pinning);
        pinAnswerer(mBareItem->process(), pinning);
        pinAnswerer(mService.process(), pinning);
        for (const auto& peer : mPeers) {
            pinAnswerer(peer->process(), pinning);
        }
    }

    Service mService;
    std::unique_ptr<Peer> mBare = makeBareExchange(kSetVolumeRequest, kStatusReply);
    std::unique_ptr<Peer> mBareItem = makeBareExchange(kItemRequest, kItemReply);
    // They go over sockets.
    std::vector<std::unique_ptr<Peer>> mPeers = throughKernel() ? std::vector<std::unique_ptr<Peer>>() : makePeers();
    Parcel mRequest;
    int mItems[255] = {};
    std::vector<Kind> mKinds;
};

} // namespace

void measureCalls(Extent extent) {
    Kinds kinds;
    const int turns = amount(extent, 50, 5000);
    kinds.measure(Pinning::SameCore, turns);
    kinds.print("calls/same_core");
    if (::sysconf(_SC_NPROCESSORS_ONLN) > 1) {
        kinds.measure(Pinning::TwoCores, turns);
        kinds.print("calls/two_cores");
    }
}

} // namespace kelutv::bench
