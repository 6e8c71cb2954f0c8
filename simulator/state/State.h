#pragma once

#include "simulator/configuration/Configuration.h"
#include "simulator/state/Revision.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::simulator {

/** A change of a state that has an event. */
struct Change {
    const wire::StateKey* key;
    wire::Values indexes;
    wire::Values values;
    unsigned int event;
};

/** Everything that the television keeps. Not synchronised. */
class State {
public:
    using Kept = std::map<std::pair<const wire::StateKey*, wire::Values>, wire::Values>;

    /** How much clients may set: the bytes of texts, 16 for each number and text, and 128 for each state and its keys.
     */
    static constexpr std::size_t kMostSet = std::size_t{2} * 1024 * 1024;

    /** Both must outlive it. */
    State(const Configuration& configuration, Revision& revision)
        : mConfiguration(configuration), mRevision(revision) {}

    /** What was set, by state and indexes. */
    const Kept& all() const { return mKept; }

    /** Replaces everything that was set, without events. */
    void load(Kept kept);

    /** Whether a client may set this, since it is not too much with all that has been set. */
    bool hasRoomFor(const wire::StateKey& key, const wire::Values& indexes, const wire::Values& values) const;

    /** The value that was kept last, else the initial value. */
    wire::Values kept(const wire::StateKey& key, const wire::Values& indexes) const;

    void keep(const wire::StateKey& key, const wire::Values& indexes, const wire::Values& values);

    /** Restores the initial values of a module; states that show a signal stay. */
    void restore(const std::string& module);

    /** Restores the initial value under these indexes; a state that shows a signal stays. */
    void restore(const wire::StateKey& key, const wire::Values& indexes);

    /** Restores the initial values of the wanted states; those that show a signal stay. */
    void restore(const std::function<bool(const wire::StateKey&)>& wanted);

    /** The changes since the last call of states that have an event. */
    std::vector<Change> takeChanges() { return std::exchange(mChanges, {}); }

private:
    /** Restores the initial value in the place of one that was set. @return the next one */
    Kept::iterator restore(Kept::iterator entry);
    void noteChange(const wire::StateKey& key, const wire::Values& indexes);

    const Configuration& mConfiguration;
    Revision& mRevision;
    Kept mKept;
    /** Of what is kept, as `kMostSet` counts it. */
    std::size_t mSize = 0;
    std::vector<Change> mChanges;
};

} // namespace kelutv::simulator
