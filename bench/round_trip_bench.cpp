// One call at a time: what the library adds to the bare exchange of the same bytes.

#include "Pinning.h"
#include "RawEcho.h"
#include "Samples.h"
#include "ServiceProcess.h"
#include "WireSizes.h"

#include <kelutv/Audio.h>
#include <kelutv/kelutv.h>
#include <kelutv/link/TVBaseClient.h>

#include <benchmark/benchmark.h>

namespace {

using namespace kelutv::bench;
using android::Parcel;
using android::TVBaseClient;

/** A finished request of setVolume, to send again and again. */
void prepare(Parcel* request) {
    request->writeInterfaceToken(android::String16("android.ITVBaseService"));
    request->writeInt32(CMD_AUDIO_SETVOLUME);
    request->writeInt32(KELU_TV_AUDIO_CHANNEL_SPEAKER);
    request->writeInt32(20);
}

struct Results {
    Samples raw;
    Samples invoke;
    Samples setVolume;
    Samples itemRead;
    Samples parcelSet;
};

void report(benchmark::State& state, const char* name, const Samples& samples) {
    state.counters[std::string(name) + "_p50_us"] = samples.percentile(0.50);
    state.counters[std::string(name) + "_p99_us"] = samples.percentile(0.99);
}

/** Every iteration makes a few calls of each kind, in turn, so that all of them meet the same machine. */
void roundTrip(benchmark::State& state, Pinning pinning) {
    RawEcho raw(1, kSetVolumeRequestSize, kStatusReplySize);
    const pid_t service = serviceProcess();
    Parcel request;
    prepare(&request);
    int items[255];
    linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 20);
    pinCaller(pinning);
    pinAnswerer(raw.process(), pinning);
    pinAnswerer(service, pinning);

    Results results;
    for (auto _ : state) {
        results.raw.time([&] { raw.roundTrip(0); });
        results.invoke.time([&] {
            Parcel reply;
            TVBaseClient::self()->getBpTvbaseService()->invoke(request, &reply);
        });
        results.setVolume.time([] { linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 20); });
        results.itemRead.time([&] { linux_tv_Audio_getAudioItemValue(CMDID_AUDIO_GET_MAX_VOLUME, 0, 0, items); });
        results.parcelSet.time([] { Audio::instance()->setPreScale(0, PreScaleInfo{1, 2}); });
    }

    report(state, "a_raw", results.raw);
    report(state, "b_invoke", results.invoke);
    report(state, "c_setVolume", results.setVolume);
    report(state, "d_item_read", results.itemRead);
    report(state, "e_parcel_set", results.parcelSet);
    const double median = results.setVolume.percentile(0.5);
    state.counters["ratio_c_to_a"] = median / results.raw.percentile(0.5);
    state.counters["c_minus_b_us"] = median - results.invoke.percentile(0.5);
}

BENCHMARK_CAPTURE(roundTrip, same_core, Pinning::SameCore)->Iterations(5000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(roundTrip, two_cores, Pinning::TwoCores)->Iterations(5000)->Unit(benchmark::kMicrosecond);

} // namespace
