#include "simulator/state/SlotForm.h"

#include <utility>

namespace kelutv::simulator {

namespace {

bool isBlock(wire::Encoding encoding) {
    return encoding == wire::Encoding::Ints || encoding == wire::Encoding::Doubles;
}

SlotPart partOf(const wire::Operation& operation, const wire::Operand& operand) {
    if (operand.index < 0) {
        return {wire::Encoding::Int32, nullptr};
    }
    const wire::RequestItem& item = operation.request[static_cast<std::size_t>(operand.index)];
    return {item.encoding, item.names};
}

std::vector<SlotPart> partsOf(const wire::Operation& operation, const wire::Rows<wire::Operand>& operands) {
    std::vector<SlotPart> parts;
    for (const wire::Operand& operand : operands) {
        parts.push_back(partOf(operation, operand));
    }
    return parts;
}

/** What a block holds can have any length; the first of it is there always in a block of fixed length. */
void addPart(SlotForm& form, const SlotPart& part, int count) {
    form.isOpen = form.isOpen || count == wire::kRestOfReply || count > 1;
    if (count > 0) {
        form.values.push_back(part);
    }
}

SlotForm formForSet(const wire::Operation& operation) {
    SlotForm form{partsOf(operation, operation.rule.keys), {}, false};
    for (const SlotPart& part : partsOf(operation, operation.rule.values)) {
        addPart(form, part, isBlock(part.encoding) ? wire::kRestOfReply : 1);
    }
    return form;
}

SlotForm formForGet(const wire::Operation& operation) {
    SlotForm form{partsOf(operation, operation.rule.keys), {}, false};
    for (const wire::ReplyField& field : operation.reply) {
        addPart(form, {field.encoding, field.names}, field.count);
    }
    if (operation.shape == wire::Shape::Status) {
        addPart(form, {wire::Encoding::Int32, nullptr}, 1);
    }
    return form;
}

const wire::Operation* operationOn(const wire::StateSlot& slot, wire::StateRule::Access access) {
    for (const wire::Command& command : wire::allCommands()) {
        if (command.operation.rule.slot == &slot && command.operation.rule.access == access) {
            return &command.operation;
        }
    }
    for (const wire::Item& item : wire::allItems()) {
        if (item.operation.rule.slot == &slot && item.operation.rule.access == access) {
            return &item.operation;
        }
    }
    return nullptr;
}

wire::Value zeroOf(wire::Encoding kind) {
    switch (kind) {
    case wire::Encoding::CString:
    case wire::Encoding::String16:
    case wire::Encoding::Bytes:
        return std::string();
    case wire::Encoding::Double:
    case wire::Encoding::Doubles:
        return 0.0;
    case wire::Encoding::Int32:
    case wire::Encoding::Ints:
        break;
    }
    return std::int32_t{0};
}

} // namespace

SlotForm formOf(const wire::StateSlot& slot) {
    if (const wire::Operation* const set = operationOn(slot, wire::StateRule::Access::Set)) {
        return formForSet(*set);
    }
    const wire::Operation* const get = operationOn(slot, wire::StateRule::Access::Get);
    return get != nullptr ? formForGet(*get) : SlotForm{};
}

wire::Values completed(const SlotForm& form, wire::Values values) {
    for (std::size_t i = values.size(); i < form.values.size(); ++i) {
        values.push_back(zeroOf(form.values[i].encoding));
    }
    return values;
}

} // namespace kelutv::simulator
