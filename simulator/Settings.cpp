#include "Settings.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace simulator {

namespace {

constexpr std::string_view kCurrentSource = "sourcemanager.curSource";
constexpr std::string_view kDeselected = "sourcemanager.deselected";

bool inRange(const Range& range, const Scalars& values) {
    return std::all_of(values.begin(), values.end(), [&range](const Scalar& value) {
        const auto* const number = std::get_if<std::int32_t>(&value);
        return number == nullptr || (*number >= range.low && *number <= range.high);
    });
}

std::optional<Fault> objectionToSource(const Equipment& equipment, const Scalar& scalar) {
    const auto id = std::get<std::int32_t>(scalar);
    if (!equipment.sources.has(id)) {
        return Fault{Result::UnknownSource, "there is no source " + std::to_string(id)};
    }
    return std::nullopt;
}

} // namespace

std::optional<Fault> objectionToValues(const Equipment& equipment, const StateSlot& slot, const Scalars& values) {
    const std::string name = slot.name;
    const SlotSettings& settings = equipment.configuration.settings(slot);
    if (!std::all_of(values.begin(), values.end(), [&slot](const Scalar& value) { return fits(slot.holds, value); })) {
        return Fault{Result::OutOfRange, name + " takes " + wordFor(slot.holds)};
    }
    if (settings.range && !inRange(*settings.range, values)) {
        return Fault{Result::OutOfRange, name + " goes from " + std::to_string(settings.range->low) + " to " +
                                             std::to_string(settings.range->high)};
    }
    return settings.valueIsSource && !values.empty() ? objectionToSource(equipment, values.front()) : std::nullopt;
}

std::optional<Fault> objectionToKeys(const Equipment& equipment, const StateSlot& slot, const Scalars& keys) {
    if (!std::equal(keys.begin(), keys.end(), slot.keys.begin(), slot.keys.end(),
                    [](const Scalar& key, Holds holds) { return fits(holds, key); })) {
        return Fault{Result::OutOfRange, std::string(slot.name) + " takes " + std::to_string(slot.keys.size()) +
                                             (slot.keys.size() == 1 ? " key" : " keys") +
                                             (slot.keys.size() == 0 ? "" : " of " + wordFor(slot.keys[0]))};
    }
    return equipment.configuration.settings(slot).keyIsSource ? objectionToSource(equipment, keys.front())
                                                              : std::nullopt;
}

Scalars readState(const Equipment& equipment, const StateSlot& slot, const Scalars& keys) {
    const auto consequence = equipment.sources.workedOut(slot, keys);
    return consequence ? *consequence : equipment.state.kept(slot, keys);
}

std::optional<Fault> setState(Equipment& equipment, const StateSlot& slot, const Scalars& keys, const Scalars& values) {
    if (auto fault = objectionToValues(equipment, slot, values)) {
        return fault;
    }
    if (auto fault = objectionToKeys(equipment, slot, keys)) {
        return fault;
    }
    if (equipment.sources.workedOut(slot, keys)) {
        return Fault{Result::OutOfRange, std::string(slot.name) + " follows from other states and cannot be set"};
    }
    if (slot.name == kCurrentSource) {
        if (values.size() != 1) {
            return Fault{Result::OutOfRange, std::string(slot.name) + " takes one source"};
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

} // namespace simulator
