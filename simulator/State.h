#pragma once

#include "Table.h"

#include <functional>
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

/** A row of constants as scalars. */
Scalars scalarsOf(const Rows<InitialValue>& values);

/** Everything that the television keeps. Not synchronised. */
class State {
public:
    /** What was kept last, else what the slot starts with. */
    Scalars kept(const StateSlot& slot, const Scalars& keys) const;

    void keep(const StateSlot& slot, const Scalars& keys, const Scalars& values);

    /** Brings the settings of a module back to what they start with; what shows a signal stays. */
    void restore(const std::string& module);

    /** Brings the settings that are wanted back to what they start with; what shows a signal stays. */
    void restore(const std::function<bool(const StateSlot&)>& wanted);

    /** What happened since the last take to slots that have an event. */
    std::vector<Change> takeChanges() { return std::exchange(mChanges, {}); }

private:
    void noteChange(const StateSlot& slot, const Scalars& keys);

    std::map<std::pair<const StateSlot*, Scalars>, Scalars> mKept;
    std::vector<Change> mChanges;
};

} // namespace simulator
