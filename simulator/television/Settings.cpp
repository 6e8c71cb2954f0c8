#include "simulator/television/Settings.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace kelutv::simulator {

namespace {

constexpr std::string_view kCurrentSource = "sourcemanager.curSource";
constexpr std::string_view kDeselected = "sourcemanager.deselected";

bool inRange(const Range& range, const wire::Values& values) {
    return std::all_of(values.begin(), values.end(), [&range](const wire::Value& value) {
        const auto* const number = std::get_if<std::int32_t>(&value);
        return number == nullptr || (*number >= range.low && *number <= range.high);
    });
}

std::optional<wire::Refusal> objectionToSource(const Equipment& equipment, const wire::Value& scalar) {
    const auto id = std::get<std::int32_t>(scalar);
    if (!equipment.sources.has(id)) {
        return wire::Refusal{wire::Result::UnknownSource, "there is no source " + std::to_string(id)};
    }
    return std::nullopt;
}

} // namespace

std::optional<wire::Refusal> objectionToValues(const Equipment& equipment, const wire::StateSlot& slot,
                                               const wire::Values& values) {
    const std::string name = slot.name;
    const SlotSettings& settings = equipment.configuration.settings(slot);
    if (!std::all_of(values.begin(), values.end(),
                     [&slot](const wire::Value& value) { return fits(slot.holds, value); })) {
        return wire::Refusal{wire::Result::OutOfRange, name + " takes " + wordFor(slot.holds)};
    }
    if (settings.range && !inRange(*settings.range, values)) {
        return wire::Refusal{wire::Result::OutOfRange, name + " goes from " + std::to_string(settings.range->low) +
                                                           " to " + std::to_string(settings.range->high)};
    }
    return settings.valueIsSource && !values.empty() ? objectionToSource(equipment, values.front()) : std::nullopt;
}

std::optional<wire::Refusal> objectionToKeys(const Equipment& equipment, const wire::StateSlot& slot,
                                             const wire::Values& keys) {
    if (!std::equal(keys.begin(), keys.end(), slot.keys.begin(), slot.keys.end(),
                    [](const wire::Value& key, wire::Holds holds) { return fits(holds, key); })) {
        return wire::Refusal{wire::Result::OutOfRange,
                             std::string(slot.name) + " takes " + std::to_string(slot.keys.size()) +
                                 (slot.keys.size() == 1 ? " key" : " keys") +
                                 (slot.keys.size() == 0 ? "" : " of " + wordFor(slot.keys[0]))};
    }
    return equipment.configuration.settings(slot).keyIsSource ? objectionToSource(equipment, keys.front())
                                                              : std::nullopt;
}

wire::Values readState(const Equipment& equipment, const wire::StateSlot& slot, const wire::Values& keys) {
    const auto consequence = equipment.sources.workedOut(slot, keys);
    return consequence ? *consequence : equipment.state.kept(slot, keys);
}

std::optional<wire::Refusal> setState(Equipment& equipment, const wire::StateSlot& slot, const wire::Values& keys,
                                      const wire::Values& values) {
    if (auto refusal = objectionToValues(equipment, slot, values)) {
        return refusal;
    }
    if (auto refusal = objectionToKeys(equipment, slot, keys)) {
        return refusal;
    }
    if (equipment.sources.workedOut(slot, keys)) {
        return wire::Refusal{wire::Result::OutOfRange,
                             std::string(slot.name) + " follows from other states and cannot be set"};
    }
    if (slot.name == kCurrentSource) {
        if (values.size() != 1) {
            return wire::Refusal{wire::Result::OutOfRange, std::string(slot.name) + " takes one source"};
        }
        equipment.sources.select(std::get<std::int32_t>(values.at(0)), std::get<std::int32_t>(keys.at(0)));
        return std::nullopt;
    }
    if (slot.name == kDeselected) {
        equipment.sources.deselect(std::get<std::int32_t>(keys.at(0)));
    }
    equipment.state.keep(slot, keys, values);
    return std::nullopt;
}

} // namespace kelutv::simulator
