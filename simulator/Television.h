#pragma once

#include "Reply.h"
#include "State.h"

#include <vector>

namespace simulator {

/** What the commands do to the simulated television. Not synchronised. */
class Television {
public:
    /** Does what a request says; the request has been read to its end. */
    Reply perform(const Request& request);

    /** What happened since the last take to slots that have an event. */
    std::vector<Change> takeChanges() { return mState.takeChanges(); }

private:
    Reply apply(const Request& request, const Rule& rule);
    void store(std::int32_t command, const StateSlot& slot, const Scalars& keys, const Scalars& values);
    void toggleSpeakerMute();

    State mState;
};

} // namespace simulator
