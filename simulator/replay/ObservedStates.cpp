#include "simulator/replay/ObservedStates.h"

#include "simulator/television/StateAccess.h"
#include "simulator/television/StateRequests.h"

#include "recording/ObservedState.h"

#include <set>
#include <utility>

namespace kelutv::simulator {

void beginAsRecorded(Equipment& equipment, const ReplayScript& script) {
    std::set<std::pair<const wire::StateKey*, wire::Values>> known;
    for (const RecordedCall& call : script.calls) {
        if (call.status != 0) {
            continue;
        }
        const auto state =
            recording::observedState(call.request, recording::Bytes(call.reply.begin(), call.reply.end()));
        if (state && known.emplace(state->key, state->indexes).second && !state->isSet &&
            !objectionToIndexes(equipment, *state->key, state->indexes) &&
            isPlainState(equipment, *state->key, state->indexes)) {
            setState(equipment, *state->key, state->indexes, state->values);
        }
    }
}

} // namespace kelutv::simulator
