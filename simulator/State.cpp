#include "State.h"

namespace simulator {

namespace {

Scalars initialOf(const StateSlot& slot, const Scalars& keys) {
    for (const KeyedInitial& initial : slot.initialByKey) {
        if (!keys.empty() && keys.front() == Scalar(initial.key)) {
            return scalarsOf(initial.values);
        }
    }
    return scalarsOf(slot.initial);
}

} // namespace

Scalars scalarsOf(const Rows<InitialValue>& values) {
    Scalars scalars;
    for (const InitialValue& value : values) {
        scalars.push_back(value.text != nullptr ? Scalar(value.text) : Scalar(value.number));
    }
    return scalars;
}

Scalars State::kept(const StateSlot& slot, const Scalars& keys) const {
    const auto found = mKept.find({&slot, keys});
    return found != mKept.end() ? found->second : initialOf(slot, keys);
}

void State::keep(const StateSlot& slot, const Scalars& keys, const Scalars& values) {
    if (kept(slot, keys) != values) {
        mKept[{&slot, keys}] = values;
        noteChange(slot, keys);
    }
}

void State::restore(const std::string& module) {
    restore([&module](const StateSlot& slot) { return slot.module == module; });
}

void State::restore(const std::function<bool(const StateSlot&)>& wanted) {
    for (auto entry = mKept.begin(); entry != mKept.end();) {
        const auto [slot, keys] = entry->first;
        const Scalars before = entry->second;
        if (!wanted(*slot) || slot->ofSignal) {
            ++entry;
            continue;
        }
        entry = mKept.erase(entry);
        if (kept(*slot, keys) != before) {
            noteChange(*slot, keys);
        }
    }
}

void State::noteChange(const StateSlot& slot, const Scalars& keys) {
    if (slot.event != 0) {
        mChanges.push_back({&slot, keys, kept(slot, keys)});
    }
}

} // namespace simulator
