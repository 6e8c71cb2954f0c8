#include "SlotForm.h"

#include <utility>

namespace simulator {

namespace {

EnumerationNames namesOf(const EnumerationNames* names) { return names != nullptr ? *names : EnumerationNames(); }

bool isBlock(Kind kind) { return kind == Kind::Ints || kind == Kind::Doubles; }

SlotPart partOf(const Operation& operation, const Operand& operand) {
    if (operand.index < 0) {
        return {Kind::Int32, {}};
    }
    const RequestItem& item = operation.request[static_cast<std::size_t>(operand.index)];
    return {item.kind, namesOf(item.names)};
}

std::vector<SlotPart> partsOf(const Operation& operation, const Rows<Operand>& operands) {
    std::vector<SlotPart> parts;
    for (const Operand& operand : operands) {
        parts.push_back(partOf(operation, operand));
    }
    return parts;
}

/** What a block holds can have any length; the first of it is there always in a block of fixed length. */
void addPart(SlotForm& form, const SlotPart& part, int count) {
    form.isOpen = form.isOpen || count == kRestOfReply || count > 1;
    if (count > 0) {
        form.values.push_back(part);
    }
}

SlotForm formForSet(const Operation& operation) {
    SlotForm form{partsOf(operation, operation.rule.keys), {}, false};
    for (const SlotPart& part : partsOf(operation, operation.rule.values)) {
        addPart(form, part, isBlock(part.kind) ? kRestOfReply : 1);
    }
    return form;
}

SlotForm formForGet(const Operation& operation) {
    SlotForm form{partsOf(operation, operation.rule.keys), {}, false};
    for (const ReplyField& field : operation.reply) {
        addPart(form, {field.kind, namesOf(field.names)}, field.count);
    }
    if (operation.shape == Shape::Status) {
        addPart(form, {Kind::Int32, {}}, 1);
    }
    return form;
}

const Operation* operationOn(const StateSlot& slot, Rule::Kind kind) {
    for (const Command& command : allCommands()) {
        if (command.operation.rule.slot == &slot && command.operation.rule.kind == kind) {
            return &command.operation;
        }
    }
    for (const Item& item : allItems()) {
        if (item.operation.rule.slot == &slot && item.operation.rule.kind == kind) {
            return &item.operation;
        }
    }
    return nullptr;
}

Scalar zeroOf(Kind kind) {
    switch (kind) {
    case Kind::CString:
    case Kind::String16:
    case Kind::Bytes:
        return std::string();
    case Kind::Double:
    case Kind::Doubles:
        return 0.0;
    case Kind::Int32:
    case Kind::Ints:
        break;
    }
    return std::int32_t{0};
}

} // namespace

SlotForm formOf(const StateSlot& slot) {
    if (const Operation* const set = operationOn(slot, Rule::Kind::Set)) {
        return formForSet(*set);
    }
    const Operation* const get = operationOn(slot, Rule::Kind::Get);
    return get != nullptr ? formForGet(*get) : SlotForm{};
}

Scalars completed(const SlotForm& form, Scalars values) {
    for (std::size_t i = values.size(); i < form.values.size(); ++i) {
        values.push_back(zeroOf(form.values[i].kind));
    }
    return values;
}

} // namespace simulator
