#include "simulator/state/State.h"

namespace kelutv::simulator {

wire::Values State::kept(const wire::StateKey& key, const wire::Values& indexes) const {
    const auto found = mKept.find({&key, indexes});
    return found != mKept.end() ? found->second : mConfiguration.settings(key).initialFor(indexes);
}

void State::keep(const wire::StateKey& key, const wire::Values& indexes, const wire::Values& values) {
    if (kept(key, indexes) != values) {
        mKept[{&key, indexes}] = values;
        mRevision.advance();
        noteChange(key, indexes);
    }
}

void State::restore(const std::string& module) {
    restore([&module](const wire::StateKey& key) { return key.module == module; });
}

void State::restore(const std::function<bool(const wire::StateKey&)>& wanted) {
    for (auto entry = mKept.begin(); entry != mKept.end();) {
        const auto [key, indexes] = entry->first;
        const wire::Values before = entry->second;
        if (!wanted(*key) || mConfiguration.settings(*key).ofSignal) {
            ++entry;
            continue;
        }
        entry = mKept.erase(entry);
        mRevision.advance();
        if (kept(*key, indexes) != before) {
            noteChange(*key, indexes);
        }
    }
}

void State::noteChange(const wire::StateKey& key, const wire::Values& indexes) {
    const unsigned int event = mConfiguration.settings(key).event;
    if (event != 0) {
        mChanges.push_back({&key, indexes, kept(key, indexes), event});
    }
}

} // namespace kelutv::simulator
