#pragma once

#include "simulator/state/State.h"
#include "simulator/television/PublishedEvent.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** The inputs of the television, what is plugged into them and their signals. Not synchronised. */
class Sources {
public:
    using All = std::map<std::int32_t, SourceSettings>;

    /** All must outlive it. */
    Sources(const Configuration& configuration, State& state, PublishedEvents& events, Revision& revision);

    const All& all() const { return mSources; }
    bool has(std::int32_t source) const { return mSources.count(source) != 0; }
    std::vector<std::int32_t> ids() const;

    /** The enumerator of a source that exists, as all below must. */
    const std::string& nameOf(std::int32_t source) const { return mSources.at(source).name; }

    bool isPlugged(std::int32_t source) const { return mSources.at(source).plugged; }

    /** The signal of the source as long as something is plugged in. */
    const Signal& signalAt(std::int32_t source) const { return mSources.at(source).signal; }

    /** The signal status that its signal has, shown or not; none without a device, and for any other source. */
    wire::Values statusAt(std::int32_t source) const;

    bool hasSignal(std::int32_t source) const;

    /** Plugs a device into the input, or unplugs it; the main window shows it at once when it shows the source. */
    void plug(std::int32_t source, bool plugged);

    /** Changes the signal, which has a value for every state that shows one; the main window follows at once, too. */
    void setSignal(std::int32_t source, const Signal& signal);

    /** Gives the source to a window; the main window shows its signal from then on. */
    void select(std::int32_t source, std::int32_t window);

    /** Takes the signal off the main window if it is that of the source. */
    void deselect(std::int32_t source);

    /** Whether the main window shows its source, which it does until that is deselected. */
    bool isShown() const { return mShown; }

    /** The indexes under which the state says what the main window shows, or that it shows nothing; none if it does not
     * say so. */
    std::optional<wire::Values> mainWindowIndexes(const wire::StateKey& key) const;

    /** The value of a state that is derived from the sources and other states; none if the state is kept. */
    std::optional<wire::Values> derived(const wire::StateKey& key, const wire::Values& indexes) const;

    /** Replaces the sources and whether the main window shows its source, without events. */
    void load(All sources, bool shown);

private:
    void change(std::int32_t source, bool plugged, const Signal& signal);
    bool showsInMainWindow(std::int32_t source) const;
    void show(const Signal& signal);
    Signal visible(std::int32_t source) const;

    const Configuration& mConfiguration;
    State& mState;
    PublishedEvents& mEvents;
    Revision& mRevision;
    All mSources;
    bool mShown = true;
};

} // namespace kelutv::simulator
