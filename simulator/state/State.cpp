#include "simulator/state/State.h"

namespace kelutv::simulator {

wire::Values State::kept(const wire::StateSlot& slot, const wire::Values& keys) const {
    const auto found = mKept.find({&slot, keys});
    return found != mKept.end() ? found->second : mConfiguration.settings(slot).initialFor(keys);
}

void State::keep(const wire::StateSlot& slot, const wire::Values& keys, const wire::Values& values) {
    if (kept(slot, keys) != values) {
        mKept[{&slot, keys}] = values;
        mRevision.advance();
        noteChange(slot, keys);
    }
}

void State::restore(const std::string& module) {
    restore([&module](const wire::StateSlot& slot) { return slot.module == module; });
}

void State::restore(const std::function<bool(const wire::StateSlot&)>& wanted) {
    for (auto entry = mKept.begin(); entry != mKept.end();) {
        const auto [slot, keys] = entry->first;
        const wire::Values before = entry->second;
        if (!wanted(*slot) || mConfiguration.settings(*slot).ofSignal) {
            ++entry;
            continue;
        }
        entry = mKept.erase(entry);
        mRevision.advance();
        if (kept(*slot, keys) != before) {
            noteChange(*slot, keys);
        }
    }
}

void State::noteChange(const wire::StateSlot& slot, const wire::Values& keys) {
    const unsigned int event = mConfiguration.settings(slot).event;
    if (event != 0) {
        mChanges.push_back({&slot, keys, kept(slot, keys), event});
    }
}

} // namespace kelutv::simulator
