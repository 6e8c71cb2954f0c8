#include "Sources.h"

#include <kelutv/video_types.h>

#include <algorithm>
#include <string_view>

namespace simulator {

namespace {

constexpr char kCurrentSource[] = "sourcemanager.curSource";
constexpr char kSignalStatus[] = "sourcemanager.signalStatus";

const Scalars& mainWindow() {
    static const auto* const keys = new Scalars{std::int32_t{KELU_TV_WINDOW_MAIN}};
    return *keys;
}

Scalars keptIn(const State& state, const char* slot) { return state.kept(*findState(slot), {}); }

/** What the signal of a source says for a slot, whether it is shown or not. */
Scalars signalOf(const Source& source, const char* slot) {
    const auto* const found =
        std::find_if(source.signal.begin(), source.signal.end(),
                     [slot](const SignalValue& value) { return std::string_view(value.slot->name) == slot; });
    return found != source.signal.end() ? scalarsOf(found->values) : Scalars{};
}

bool hasSignal(const Source& source) { return signalOf(source, kSignalStatus) == Scalars{std::int32_t{1}}; }

Scalars idsOf(bool (*wanted)(const Source&)) {
    Scalars ids;
    for (const Source& source : allSources()) {
        if (wanted(source)) {
            ids.emplace_back(source.id);
        }
    }
    return ids;
}

Scalars everySource(const State&, const Scalars&) {
    return idsOf([](const Source&) { return true; });
}

Scalars sourcesWithSignal(const State&, const Scalars&) { return idsOf(hasSignal); }

Scalars statusAtSource(const State&, const Scalars& keys) {
    return signalOf(*findSource(std::get<std::int32_t>(keys.front())), kSignalStatus);
}

Scalars statusOfMainWindow(const State& state, const Scalars&) { return keptIn(state, kSignalStatus); }

Scalars status3d(const State& state, const Scalars&) {
    const bool flat = keptIn(state, "video.mode3d") == Scalars{std::int32_t{KELU_TV_3DMODE_OFF}};
    return {std::int32_t{!flat}};
}

Scalars pictureModeOfStreamType(const State& state, const Scalars&) {
    return state.kept(*findState("picture.pictureMode"), keptIn(state, "picture.hdrStreamType"));
}

struct Consequence {
    const char* slot;
    Scalars (*workOut)(const State& state, const Scalars& keys);
};

constexpr Consequence kConsequences[] = {
    {"sourcemanager.sourceList", everySource},
    {"sourcemanager.availSourceList", sourcesWithSignal},
    {"sourcemanager.offlineSigStatus", statusAtSource},
    {"video.signalStatusSync", statusAtSource},
    {"video.signalLock", statusOfMainWindow},
    {"video.status3d", status3d},
    {"picture.currentPictureMode", pictureModeOfStreamType},
};

} // namespace

void selectSource(State& state, std::int32_t source, std::int32_t window) {
    const StateSlot& current = *findState(kCurrentSource);
    const Scalars before = state.kept(current, mainWindow());
    state.keep(current, {window}, {source});
    state.keep(*findState("sourcemanager.selectSource"), {}, {source});
    if (window != KELU_TV_WINDOW_MAIN) {
        return;
    }
    if (before != Scalars{source}) {
        state.keep(*findState("sourcemanager.lastMainSource"), {}, before);
    }
    for (const SignalValue& value : findSource(source)->signal) {
        state.keep(*value.slot, {}, scalarsOf(value.values));
    }
}

void deselectSource(State& state, std::int32_t source) {
    if (state.kept(*findState(kCurrentSource), mainWindow()) != Scalars{source}) {
        return;
    }
    for (const SignalValue& value : findSource(source)->signal) {
        state.keep(*value.slot, {}, Scalars(value.values.size(), std::int32_t{0}));
    }
}

std::optional<Scalars> workedOut(const State& state, const StateSlot& slot, const Scalars& keys) {
    for (const Consequence& consequence : kConsequences) {
        if (std::string_view(consequence.slot) == slot.name) {
            return consequence.workOut(state, keys);
        }
    }
    return std::nullopt;
}

} // namespace simulator
