#include "wire/codec/Reply.h"

#include <algorithm>
#include <cstdint>
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
    Dealer(const Arguments& arguments, const Values& kept)
        : mArguments(arguments), mNext(kept.data()), mEnd(kept.data() + kept.size()) {}

    Values deal(const ReplyField& field) {
        const auto rest = static_cast<std::size_t>(mEnd - mNext);
        if (field.count == kCountOfRest) {
            return {Value(static_cast<std::int32_t>(rest))};
        }
        const std::size_t count =
            field.count == kRestOfReply ? wantedOf(field, rest) : static_cast<std::size_t>(field.count);
        Values values;
        for (std::size_t i = 0; i < count; ++i) {
            values.push_back(fitted(field.encoding, mNext != mEnd ? mNext++ : nullptr));
        }
        return values;
    }

private:
    std::size_t wantedOf(const ReplyField& field, std::size_t rest) const {
        const std::size_t wanted = lengthOf(field, mArguments).value_or(rest);
        return wanted <= kMostReplyValues ? wanted : rest;
    }

    const Arguments& mArguments;
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

std::optional<std::size_t> lengthOf(const ReplyField& field, const Arguments& arguments) {
    if (field.lengthItems.size() == 0) {
        return std::nullopt;
    }
    std::uint64_t length = 1;
    for (const int item : field.lengthItems) {
        const auto index = static_cast<std::size_t>(item);
        if (index >= arguments.size()) {
            return std::nullopt;
        }
        length *= static_cast<std::uint64_t>(std::max(std::get<std::int32_t>(arguments[index].front()), 0));
    }
    return static_cast<std::size_t>(std::min<std::uint64_t>(length, SIZE_MAX));
}

Reply replyWith(const Operation& operation, const Arguments& arguments, const Values& kept) {
    Reply reply;
    if (operation.shape == Shape::Status) {
        reply.result = std::get<std::int32_t>(fitted(Encoding::Int32, kept.empty() ? nullptr : kept.data()));
        return reply;
    }
    Dealer dealer(arguments, kept);
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
