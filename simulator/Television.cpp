#include "Television.h"

#include <kelutv/audio_types.h>
#include <kelutv/commands.h>

#include <algorithm>

namespace simulator {

namespace {

Scalars collect(const Rows<Operand>& operands, const Arguments& arguments) {
    Scalars scalars;
    for (const Operand& operand : operands) {
        if (operand.index < 0) {
            scalars.emplace_back(operand.literal);
        } else {
            const Scalars& argument = arguments[static_cast<std::size_t>(operand.index)];
            scalars.insert(scalars.end(), argument.begin(), argument.end());
        }
    }
    return scalars;
}

Scalars initialOf(const StateSlot& slot) {
    Scalars scalars;
    for (const InitialValue& value : slot.initial) {
        scalars.push_back(value.text != nullptr ? Scalar(value.text) : Scalar(value.number));
    }
    return scalars;
}

bool inRange(const StateSlot& slot, const Scalars& values) {
    return !slot.bounded || std::all_of(values.begin(), values.end(), [&slot](const Scalar& value) {
        const auto* const number = std::get_if<std::int32_t>(&value);
        return number == nullptr || (*number >= slot.low && *number <= slot.high);
    });
}

std::string rangeOf(const StateSlot& slot) {
    return std::string(slot.name) + " goes from " + std::to_string(slot.low) + " to " + std::to_string(slot.high);
}

} // namespace

Reply Television::perform(const Request& request) {
    const Operation& operation = *request.operation;
    switch (request.command->value) {
    case CMD_CEC_MODIFY_MUTE:
        toggleSpeakerMute();
        return {};
    case CMD_AUDIO_RESTORESOUNDSETS:
        restore("audio");
        return {};
    default:
        break;
    }
    const Rule& rule = operation.rule;
    if (rule.kind == Rule::Kind::Set) {
        return store(operation, request.arguments);
    }
    const bool reads = rule.kind == Rule::Kind::Get;
    return replyWith(operation, reads ? kept(*rule.slot, collect(rule.keys, request.arguments)) : Scalars{});
}

std::vector<Change> Television::takeChanges() { return std::exchange(mChanges, {}); }

Reply Television::store(const Operation& operation, const Arguments& arguments) {
    const Rule& rule = operation.rule;
    const Scalars values = collect(rule.values, arguments);
    if (!inRange(*rule.slot, values)) {
        return refusal({Result::OutOfRange, rangeOf(*rule.slot)});
    }
    keep(*rule.slot, collect(rule.keys, arguments), values);
    return replyWith(operation, {});
}

Scalars Television::kept(const StateSlot& slot, const Scalars& keys) const {
    const auto found = mState.find({&slot, keys});
    return found != mState.end() ? found->second : initialOf(slot);
}

void Television::keep(const StateSlot& slot, const Scalars& keys, const Scalars& values) {
    if (kept(slot, keys) != values) {
        mState[{&slot, keys}] = values;
        noteChange(slot, keys);
    }
}

void Television::noteChange(const StateSlot& slot, const Scalars& keys) {
    if (slot.event != 0) {
        mChanges.push_back({&slot, keys, kept(slot, keys)});
    }
}

void Television::toggleSpeakerMute() {
    const StateSlot& mute = *findState("audio.mute");
    const Scalars speaker{std::int32_t{KELU_TV_AUDIO_CHANNEL_SPEAKER}};
    keep(mute, speaker, {std::int32_t{kept(mute, speaker) == Scalars{std::int32_t{0}}}});
}

void Television::restore(const std::string& module) {
    for (auto entry = mState.begin(); entry != mState.end();) {
        const auto [slot, keys] = entry->first;
        const Scalars before = entry->second;
        if (slot->module != module) {
            ++entry;
            continue;
        }
        entry = mState.erase(entry);
        if (kept(*slot, keys) != before) {
            noteChange(*slot, keys);
        }
    }
}

} // namespace simulator
