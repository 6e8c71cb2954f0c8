#include "simulator/television/Sources.h"

#include "wire/events/Payload.h"

#include <kelutv-simulator/events.h>
#include <kelutv/video_types.h>

#include <string_view>
#include <utility>

namespace kelutv::simulator {

namespace {

constexpr char kCurrentSource[] = "sourcemanager.curSource";
constexpr char kDeselected[] = "sourcemanager.deselected";
constexpr char kSignalStatus[] = "sourcemanager.signalStatus";

const wire::Values& mainWindow() {
    static const auto* const indexes = new wire::Values{std::int32_t{KELU_TV_WINDOW_MAIN}};
    return *indexes;
}

bool isGood(const wire::Values& status) { return status == wire::Values{std::int32_t{1}}; }

wire::Values keptIn(const State& state, const char* name, const wire::Values& indexes) {
    return state.kept(*wire::findState(name), indexes);
}

wire::Values everySource(const Sources& sources, const State&, const wire::Values&) {
    const std::vector<std::int32_t> all = sources.ids();
    return {all.begin(), all.end()};
}

wire::Values pluggedSources(const Sources& sources, const State&, const wire::Values&) {
    wire::Values found;
    for (const std::int32_t source : sources.ids()) {
        if (sources.isPlugged(source)) {
            found.emplace_back(source);
        }
    }
    return found;
}

wire::Values statusAtSource(const Sources& sources, const State&, const wire::Values& indexes) {
    return sources.statusAt(std::get<std::int32_t>(indexes.front()));
}

wire::Values statusOfMainWindow(const Sources&, const State& state, const wire::Values&) {
    return keptIn(state, kSignalStatus, {});
}

wire::Values status3d(const Sources&, const State& state, const wire::Values&) {
    const bool flat = keptIn(state, "video.mode3d", {}) == wire::Values{std::int32_t{KELU_TV_3DMODE_OFF}};
    return {std::int32_t{!flat}};
}

wire::Values pictureModeOfStreamType(const Sources&, const State& state, const wire::Values&) {
    return keptIn(state, "picture.pictureMode", keptIn(state, "picture.hdrStreamType", {}));
}

struct Derivation {
    const char* state;
    wire::Values (*derive)(const Sources& sources, const State& state, const wire::Values& indexes);
};

constexpr Derivation kDerivations[] = {
    {"sourcemanager.sourceList", everySource},
    {"sourcemanager.availSourceList", pluggedSources},
    {"sourcemanager.offlineSigStatus", statusAtSource},
    {"video.signalStatusSync", statusAtSource},
    {"video.signalLock", statusOfMainWindow},
    {"video.status3d", status3d},
    {"picture.currentPictureMode", pictureModeOfStreamType},
};

} // namespace

Sources::Sources(const Configuration& configuration, State& state, PublishedEvents& events, Revision& revision)
    : mConfiguration(configuration), mState(state), mEvents(events), mRevision(revision),
      mSources(configuration.sources()) {}

std::vector<std::int32_t> Sources::ids() const {
    std::vector<std::int32_t> ids;
    for (const auto& source : mSources) {
        ids.push_back(source.first);
    }
    return ids;
}

bool Sources::hasSignal(std::int32_t source) const { return isGood(statusAt(source)); }

void Sources::plug(std::int32_t source, bool plugged) { change(source, plugged, signalAt(source)); }

void Sources::setSignal(std::int32_t source, const Signal& signal) { change(source, isPlugged(source), signal); }

void Sources::change(std::int32_t source, bool plugged, const Signal& signal) {
    SourceSettings& settings = mSources.at(source);
    if (settings.plugged == plugged && settings.signal == signal) {
        return;
    }
    const auto before = std::make_pair(settings.plugged, hasSignal(source));
    settings.plugged = plugged;
    settings.signal = signal;
    mRevision.advance();
    const auto after = std::make_pair(plugged, hasSignal(source));
    if (after != before) {
        const std::string text = settings.name + (plugged ? " is plugged in" : " is unplugged") +
                                 (after.second ? ", with a signal" : ", without a signal");
        mEvents.push_back({KELU_SIM_EVENT_SOURCE_PLUGGED,
                           wire::payloadOf({source, std::int32_t{plugged}, std::int32_t{after.second}}), text});
    }
    if (showsInMainWindow(source)) {
        show(visible(source));
    }
}

void Sources::select(std::int32_t source, std::int32_t window) {
    const wire::StateKey& current = *wire::findState(kCurrentSource);
    const wire::Values before = mState.kept(current, mainWindow());
    mState.keep(current, {window}, {source});
    mState.keep(*wire::findState("sourcemanager.selectSource"), {}, {source});
    if (window != KELU_TV_WINDOW_MAIN) {
        return;
    }
    if (before != wire::Values{source}) {
        mState.keep(*wire::findState("sourcemanager.lastMainSource"), {}, before);
    }
    mShown = true;
    show(visible(source));
}

void Sources::deselect(std::int32_t source) {
    if (showsInMainWindow(source)) {
        mShown = false;
        show(mConfiguration.noSignal());
    }
}

std::optional<wire::Values> Sources::derived(const wire::StateKey& key, const wire::Values& indexes) const {
    for (const Derivation& derivation : kDerivations) {
        if (std::string_view(derivation.state) == key.name) {
            return derivation.derive(*this, mState, indexes);
        }
    }
    return std::nullopt;
}

std::optional<wire::Values> Sources::mainWindowIndexes(const wire::StateKey& key) const {
    if (std::string_view(key.name) == kCurrentSource) {
        return mainWindow();
    }
    if (std::string_view(key.name) == kDeselected && !mShown) {
        return keptIn(mState, kCurrentSource, mainWindow());
    }
    return std::nullopt;
}

void Sources::load(All sources, bool shown) {
    mSources = std::move(sources);
    mShown = shown;
}

bool Sources::showsInMainWindow(std::int32_t source) const {
    return mShown && keptIn(mState, kCurrentSource, mainWindow()) == wire::Values{source};
}

void Sources::show(const Signal& signal) {
    for (const auto& [key, values] : signal) {
        mState.keep(*key, {}, values);
    }
}

Signal Sources::visible(std::int32_t source) const {
    return has(source) && isPlugged(source) ? signalAt(source) : mConfiguration.noSignal();
}

wire::Values Sources::statusAt(std::int32_t source) const {
    const Signal signal = visible(source);
    const auto found = signal.find(wire::findState(kSignalStatus));
    return found != signal.end() ? found->second : wire::Values{};
}

} // namespace kelutv::simulator
