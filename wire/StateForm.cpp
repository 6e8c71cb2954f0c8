#include "wire/StateForm.h"

#include <utility>

namespace kelutv::wire {

namespace {

bool isBlock(Encoding encoding) { return encoding == Encoding::Ints || encoding == Encoding::Doubles; }

StatePart partOf(const Operation& operation, const Operand& operand) {
    if (operand.index < 0) {
        return {Encoding::Int32, nullptr};
    }
    const RequestItem& item = operation.request[static_cast<std::size_t>(operand.index)];
    return {item.encoding, item.names};
}

std::vector<StatePart> partsOf(const Operation& operation, const Rows<Operand>& operands) {
    std::vector<StatePart> parts;
    for (const Operand& operand : operands) {
        parts.push_back(partOf(operation, operand));
    }
    return parts;
}

/** What a block holds can have any length; the first of it is there always in a block of fixed length. */
void addPart(StateForm& form, const StatePart& part, int count) {
    form.isOpen = form.isOpen || count == kRestOfReply || count > 1;
    if (count > 0) {
        form.values.push_back(part);
    }
}

StateForm formForSet(const Operation& operation) {
    StateForm form{partsOf(operation, operation.rule.indexes), {}, false};
    for (const StatePart& part : partsOf(operation, operation.rule.values)) {
        addPart(form, part, isBlock(part.encoding) ? kRestOfReply : 1);
    }
    return form;
}

StateForm formForGet(const Operation& operation) {
    StateForm form{partsOf(operation, operation.rule.indexes), {}, false};
    for (const ReplyField& field : operation.reply) {
        addPart(form, {field.encoding, field.names}, field.count);
    }
    if (operation.shape == Shape::Status) {
        addPart(form, {Encoding::Int32, nullptr}, 1);
    }
    return form;
}

const Operation* operationOn(const StateKey& key, StateRule::Access access) {
    for (const Command& command : allCommands()) {
        if (command.operation.rule.key == &key && command.operation.rule.access == access) {
            return &command.operation;
        }
    }
    for (const Item& item : allItems()) {
        if (item.operation.rule.key == &key && item.operation.rule.access == access) {
            return &item.operation;
        }
    }
    return nullptr;
}

Value zeroOf(Encoding kind) {
    switch (kind) {
    case Encoding::CString:
    case Encoding::String16:
    case Encoding::Bytes:
        return std::string();
    case Encoding::Double:
    case Encoding::Doubles:
        return 0.0;
    case Encoding::Int32:
    case Encoding::Ints:
        break;
    }
    return std::int32_t{0};
}

std::size_t sizeOf(const Values& values) {
    constexpr std::size_t kOfValue = 16;
    std::size_t size = 0;
    for (const Value& value : values) {
        const auto* const text = std::get_if<std::string>(&value);
        size += kOfValue + (text != nullptr ? text->size() : 0);
    }
    return size;
}

} // namespace

StateForm formOf(const StateKey& key) {
    if (const Operation* const set = operationOn(key, StateRule::Access::Set)) {
        return formForSet(*set);
    }
    const Operation* const get = operationOn(key, StateRule::Access::Get);
    return get != nullptr ? formForGet(*get) : StateForm{};
}

bool isReadAlike(const StateKey& key, const Values& before, const Values& after) {
    return before == after || (before.size() < after.size() && completed(formOf(key), before) == after);
}

std::size_t keptSize(const Values& indexes, const Values& values) {
    constexpr std::size_t kOfEntry = 128;
    return kOfEntry + sizeOf(indexes) + sizeOf(values);
}

Values completed(const StateForm& form, Values values) {
    for (std::size_t i = values.size(); i < form.values.size(); ++i) {
        values.push_back(zeroOf(form.values[i].encoding));
    }
    return values;
}

} // namespace kelutv::wire
