#pragma once

#include "Reply.h"
#include "Table.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace simulator {

/** Something that applications are told of. */
struct Change {
    const StateSlot* slot;
    Scalars keys;
    Scalars values;
};

/** What the simulated television keeps, and what its commands do to it. Not synchronised. */
class Television {
public:
    /** Does what a request says; the request has been read to its end. */
    Reply perform(const Request& request);

    /** What happened since the last take to slots that have an event. */
    std::vector<Change> takeChanges();

private:
    Reply store(const Operation& operation, const Arguments& arguments);
    Scalars kept(const StateSlot& slot, const Scalars& keys) const;
    void keep(const StateSlot& slot, const Scalars& keys, const Scalars& values);
    void noteChange(const StateSlot& slot, const Scalars& keys);
    void toggleSpeakerMute();
    void restore(const std::string& module);

    std::map<std::pair<const StateSlot*, Scalars>, Scalars> mState;
    std::vector<Change> mChanges;
};

} // namespace simulator
