#include "simulator/state/State.h"

#include "wire/StateForm.h"

#include <iterator>

namespace kelutv::simulator {

void State::load(Kept kept) {
    mKept = std::move(kept);
    mSize = 0;
    for (const auto& [place, values] : mKept) {
        mSize += wire::keptSize(place.second, values);
    }
}

bool State::hasRoomFor(const wire::StateKey& key, const wire::Values& indexes, const wire::Values& values) const {
    const auto found = mKept.find({&key, indexes});
    const std::size_t before = found != mKept.end() ? wire::keptSize(indexes, found->second) : 0;
    const std::size_t after = wire::keptSize(indexes, values);
    return after <= before || mSize - before + after <= kMostSet;
}

wire::Values State::kept(const wire::StateKey& key, const wire::Values& indexes) const {
    const auto found = mKept.find({&key, indexes});
    return found != mKept.end() ? found->second : mConfiguration.settings(key).initialFor(indexes);
}

void State::keep(const wire::StateKey& key, const wire::Values& indexes, const wire::Values& values) {
    if (!wire::isReadAlike(key, kept(key, indexes), values)) {
        const auto [entry, isNew] = mKept.try_emplace({&key, indexes});
        mSize -= isNew ? 0 : wire::keptSize(indexes, entry->second);
        mSize += wire::keptSize(indexes, values);
        entry->second = values;
        mRevision.advance();
        noteChange(key, indexes);
    }
}

void State::restore(const std::string& module) {
    restore([&module](const wire::StateKey& key) { return key.module == module; });
}

void State::restore(const std::function<bool(const wire::StateKey&)>& wanted) {
    for (auto entry = mKept.begin(); entry != mKept.end();) {
        entry = wanted(*entry->first.first) ? restore(entry) : std::next(entry);
    }
}

void State::restore(const wire::StateKey& key, const wire::Values& indexes) {
    if (const auto entry = mKept.find({&key, indexes}); entry != mKept.end()) {
        restore(entry);
    }
}

State::Kept::iterator State::restore(Kept::iterator entry) {
    const auto [key, indexes] = entry->first;
    if (mConfiguration.settings(*key).ofSignal) {
        return std::next(entry);
    }
    const wire::Values before = entry->second;
    const auto next = mKept.erase(entry);
    mSize -= wire::keptSize(indexes, before);
    mRevision.advance();
    if (kept(*key, indexes) != before) {
        noteChange(*key, indexes);
    }
    return next;
}

void State::noteChange(const wire::StateKey& key, const wire::Values& indexes) {
    const unsigned int event = mConfiguration.settings(key).event;
    if (event != 0) {
        mChanges.push_back({&key, indexes, kept(key, indexes), event});
    }
}

} // namespace kelutv::simulator
