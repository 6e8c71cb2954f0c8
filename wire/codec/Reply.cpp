#include "wire/codec/Reply.h"

#include <utility>

namespace kelutv::wire {

namespace {

/** The value in the type of the field; 0 or empty when there is none or it has another type. */
template <typename Wanted> Value as(const Value* value) {
    const auto* const typed = value != nullptr ? std::get_if<Wanted>(value) : nullptr;
    return typed != nullptr ? *typed : Wanted{};
}

Value fitted(Encoding kind, const Value* value) {
    switch (kind) {
    case Encoding::CString:
    case Encoding::String16:
    case Encoding::Bytes:
        return as<std::string>(value);
    case Encoding::Double:
    case Encoding::Doubles:
        return as<double>(value);
    case Encoding::Int32:
    case Encoding::Ints:
        break;
    }
    return as<std::int32_t>(value);
}

/** Deals the kept values out to the fields, in order. */
class Dealer {
public:
    explicit Dealer(const Values& kept) : mNext(kept.data()), mEnd(kept.data() + kept.size()) {}

    Values deal(const ReplyField& field) {
        const auto rest = static_cast<std::size_t>(mEnd - mNext);
        if (field.count == kCountOfRest) {
            return {Value(static_cast<std::int32_t>(rest))};
        }
        const std::size_t count = field.count == kRestOfReply ? rest : static_cast<std::size_t>(field.count);
        Values values;
        for (std::size_t i = 0; i < count; ++i) {
            values.push_back(fitted(field.encoding, mNext != mEnd ? mNext++ : nullptr));
        }
        return values;
    }

private:
    const Value* mNext;
    const Value* mEnd;
};

android::status_t write(android::Parcel& parcel, const Value& value) {
    if (const auto* const number = std::get_if<std::int32_t>(&value)) {
        return parcel.writeInt32(*number);
    }
    if (const auto* const number = std::get_if<double>(&value)) {
        return parcel.writeDouble(*number);
    }
    return parcel.writeCString(std::get<std::string>(value).c_str());
}

} // namespace

Reply replyTo(const Refusal& refusal) { return {static_cast<std::int32_t>(refusal.result), refusal.text, {}}; }

Reply replyWith(const Operation& operation, const Values& kept) {
    Reply reply;
    if (operation.shape == Shape::Status) {
        reply.result = std::get<std::int32_t>(fitted(Encoding::Int32, kept.empty() ? nullptr : kept.data()));
        return reply;
    }
    Dealer dealer(kept);
    for (const ReplyField& field : operation.reply) {
        reply.fields.push_back(dealer.deal(field));
    }
    return reply;
}

android::status_t writeReply(const Reply& reply, android::Parcel& parcel) {
    android::status_t status = parcel.writeInt32(reply.result);
    for (const Values& field : reply.fields) {
        for (auto value = field.begin(); value != field.end() && status == android::NO_ERROR; ++value) {
            status = write(parcel, *value);
        }
    }
    return status;
}

} // namespace kelutv::wire
