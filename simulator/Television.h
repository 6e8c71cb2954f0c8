#pragma once

#include "Equipment.h"
#include "Reply.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace simulator {

/** What the commands do to the simulated television. Not synchronised. */
class Television {
public:
    explicit Television(EepStore eep = EepStore()) : mEquipment(std::move(eep)) {}

    /** Does what a request says; the request has been read to its end. */
    Reply perform(const Request& request);

    /** What happened since the last take to slots that have an event. */
    std::vector<Change> takeChanges() { return mEquipment.state.takeChanges(); }

    /** Does what a line of the control channel says; what is wrong with it, if anything, and then nothing is done. */
    std::optional<std::string> control(const std::string& line);

    /** What else happened since the last take. */
    Notices takeNotices() { return std::exchange(mEquipment.notices, {}); }

private:
    Reply apply(const Request& request, const Rule& rule);
    void store(std::int32_t command, const StateSlot& slot, const Scalars& keys, const Scalars& values);

    Equipment mEquipment;
};

} // namespace simulator
