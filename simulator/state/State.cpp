#include "simulator/state/State.h"

#include "wire/StateForm.h"

#include <iterator>

namespace kelutv::simulator {

namespace {

std::size_t sizeOf(const wire::Values& values) {
    constexpr std::size_t kOfValue = 16;
    std::size_t size = 0;
    for (const wire::Value& value : values) {
        const auto* const text = std::get_if<std::string>(&value);
        size += kOfValue + (text != nullptr ? text->size() : 0);
    }
    return size;
}

std::size_t sizeOf(const wire::Values& indexes, const wire::Values& values) {
    constexpr std::size_t kOfEntry = 128;
    return kOfEntry + sizeOf(indexes) + sizeOf(values);
}

/** What was never set has fewer values than what is set to zero, which clients read alike. */
bool isSame(const wire::StateKey& key, const wire::Values& before, const wire::Values& values) {
    return before == values || (before.size() < values.size() && wire::completed(wire::formOf(key), before) == values);
}

} // namespace

void State::load(Kept kept) {
    mKept = std::move(kept);
    mSize = 0;
    for (const auto& [place, values] : mKept) {
        mSize += sizeOf(place.second, values);
    }
}

bool State::hasRoomFor(const wire::StateKey& key, const wire::Values& indexes, const wire::Values& values) const {
    const auto found = mKept.find({&key, indexes});
    const std::size_t before = found != mKept.end() ? sizeOf(indexes, found->second) : 0;
    const std::size_t after = sizeOf(indexes, values);
    return after <= before || mSize - before + after <= kMostSet;
}

wire::Values State::kept(const wire::StateKey& key, const wire::Values& indexes) const {
    const auto found = mKept.find({&key, indexes});
    return found != mKept.end() ? found->second : mConfiguration.settings(key).initialFor(indexes);
}

void State::keep(const wire::StateKey& key, const wire::Values& indexes, const wire::Values& values) {
    if (!isSame(key, kept(key, indexes), values)) {
        const auto [entry, isNew] = mKept.try_emplace({&key, indexes});
        mSize -= isNew ? 0 : sizeOf(indexes, entry->second);
        mSize += sizeOf(indexes, values);
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
    mSize -= sizeOf(indexes, before);
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
