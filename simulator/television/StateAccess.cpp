#include "simulator/television/StateAccess.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace kelutv::simulator {

namespace {

constexpr std::string_view kCurrentSourceKey = "sourcemanager.curSource";
constexpr std::string_view kDeselectedKey = "sourcemanager.deselected";

bool inRange(const Range& range, const wire::Values& values) {
    return std::all_of(values.begin(), values.end(), [&range](const wire::Value& value) {
        const auto* const number = std::get_if<std::int32_t>(&value);
        return number == nullptr || (*number >= range.low && *number <= range.high);
    });
}

std::optional<wire::Refusal> objectionToSource(const Equipment& equipment, const wire::Value& value) {
    const auto id = std::get<std::int32_t>(value);
    if (!equipment.sources.has(id)) {
        return wire::Refusal{wire::Result::UnknownSource, "there is no source " + std::to_string(id)};
    }
    return std::nullopt;
}

} // namespace

std::optional<wire::Refusal> objectionToValues(const Equipment& equipment, const wire::StateKey& key,
                                               const wire::Values& values) {
    const std::string name = key.name;
    const StateSettings& settings = equipment.configuration.settings(key);
    if (!std::all_of(values.begin(), values.end(),
                     [&key](const wire::Value& value) { return fits(key.holds, value); })) {
        return wire::Refusal{wire::Result::OutOfRange, name + " takes " + nameOf(key.holds)};
    }
    if (settings.range && !inRange(*settings.range, values)) {
        return wire::Refusal{wire::Result::OutOfRange, name + " goes from " + std::to_string(settings.range->low) +
                                                           " to " + std::to_string(settings.range->high)};
    }
    return settings.valueIsSource && !values.empty() ? objectionToSource(equipment, values.front()) : std::nullopt;
}

std::optional<wire::Refusal> objectionToIndexes(const Equipment& equipment, const wire::StateKey& key,
                                                const wire::Values& indexes) {
    if (!std::equal(indexes.begin(), indexes.end(), key.indexes.begin(), key.indexes.end(),
                    [](const wire::Value& index, wire::Holds holds) { return fits(holds, index); })) {
        return wire::Refusal{wire::Result::OutOfRange,
                             std::string(key.name) + " takes " + std::to_string(key.indexes.size()) +
                                 (key.indexes.size() == 1 ? " key" : " keys") +
                                 (key.indexes.size() == 0 ? "" : " of " + nameOf(key.indexes[0]))};
    }
    return equipment.configuration.settings(key).indexIsSource ? objectionToSource(equipment, indexes.front())
                                                               : std::nullopt;
}

std::optional<wire::Refusal> objectionToSize(const State& state, const wire::StateKey& key, const wire::Values& indexes,
                                             const wire::Values& values) {
    if (state.hasRoomFor(key, indexes, values)) {
        return std::nullopt;
    }
    return wire::Refusal{wire::Result::OutOfRange, "the television keeps settings of at most " +
                                                       std::to_string(State::kMostSet) + " bytes, of " + key.name +
                                                       " no more"};
}

wire::Values readState(const Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes) {
    const auto derivation = equipment.sources.derived(key, indexes);
    return derivation ? *derivation : equipment.state.kept(key, indexes);
}

std::optional<wire::Refusal> setState(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes,
                                      const wire::Values& values) {
    if (auto refusal = objectionToValues(equipment, key, values)) {
        return refusal;
    }
    if (auto refusal = objectionToIndexes(equipment, key, indexes)) {
        return refusal;
    }
    if (equipment.sources.derived(key, indexes)) {
        return wire::Refusal{wire::Result::OutOfRange,
                             std::string(key.name) + " is derived from other states and cannot be set"};
    }
    if (auto refusal = objectionToSize(equipment.state, key, indexes, values)) {
        return refusal;
    }
    if (key.name == kCurrentSourceKey) {
        if (values.size() != 1) {
            return wire::Refusal{wire::Result::OutOfRange, std::string(key.name) + " takes one source"};
        }
        equipment.sources.select(std::get<std::int32_t>(values.at(0)), std::get<std::int32_t>(indexes.at(0)));
        return std::nullopt;
    }
    if (key.name == kDeselectedKey) {
        equipment.sources.deselect(std::get<std::int32_t>(indexes.at(0)));
    }
    equipment.state.keep(key, indexes, values);
    return std::nullopt;
}

void resetState(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes) {
    equipment.state.restore(key, indexes);
    if (key.name == kCurrentSourceKey) {
        const wire::Values initial = equipment.state.kept(key, indexes);
        equipment.sources.select(std::get<std::int32_t>(initial.at(0)), std::get<std::int32_t>(indexes.at(0)));
    }
}

} // namespace kelutv::simulator
