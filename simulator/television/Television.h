#pragma once

#include "simulator/television/Equipment.h"
#include "simulator/television/StateFile.h"
#include "wire/codec/Reply.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::simulator {

/** The simulated television: carries out requests. Not synchronised. */
class Television {
public:
    /**
     * @param stateFile where its state outlives it; empty for nowhere
     * @throws ConfigurationError when the file holds something else; std::runtime_error when it cannot be used
     */
    explicit Television(Configuration configuration, EepStore eep = EepStore(), const std::string& stateFile = "");

    /** Carries out a request, which has been read to its end. */
    wire::Reply perform(const wire::Request& request);

    /** The changes since the last call of states that have an event. */
    std::vector<Change> takeChanges() { return mEquipment.state.takeChanges(); }

    /**
     * Writes the state if it is not in its file yet, which each request and action does at its end.
     *
     * What was carried out stands even if that fails, and is written later; the first failure is told.
     */
    void keepState();

    const Equipment& equipment() const { return mEquipment; }

    /** The faults that hit this request. */
    std::vector<FaultRule> meetFaults(const wire::Request& request, pid_t caller) {
        return mEquipment.faults.meet(request, caller);
    }

    /** Runs an action that no request carries, and keeps the state. @return what `action` returns */
    template <typename Action> auto operate(const Action& action) {
        auto result = action(mEquipment);
        keepState();
        return result;
    }

    /** The other events since the last call. */
    PublishedEvents takeEvents() { return std::exchange(mEquipment.events, {}); }

private:
    wire::Reply carryOut(const wire::Request& request);
    wire::Reply apply(const wire::Request& request, const wire::StateRule& rule);

    Equipment mEquipment;
    StateFile mStateFile;
    /** The last attempt to write the state failed. */
    bool mIsUnkeepable = false;
};

} // namespace kelutv::simulator
