#include "Reply.h"

#include <algorithm>
#include <utility>

namespace simulator {

namespace {

/** The scalar in the type of the field; 0 or empty when there is none or it has another type. */
template <typename Wanted> Scalar as(const Scalar* scalar) {
    const auto* const value = scalar != nullptr ? std::get_if<Wanted>(scalar) : nullptr;
    return value != nullptr ? *value : Wanted{};
}

Scalar fitted(Kind kind, const Scalar* scalar) {
    switch (kind) {
    case Kind::CString:
    case Kind::String16:
    case Kind::Bytes:
        return as<std::string>(scalar);
    case Kind::Double:
    case Kind::Doubles:
        return as<double>(scalar);
    case Kind::Int32:
    case Kind::Ints:
        break;
    }
    return as<std::int32_t>(scalar);
}

/** Deals the kept scalars out to the fields, in order. */
class Dealer {
public:
    explicit Dealer(const Scalars& kept) : mNext(kept.data()), mEnd(kept.data() + kept.size()) {}

    Scalars deal(const ReplyField& field) {
        const auto rest = static_cast<std::size_t>(mEnd - mNext);
        if (field.count == kCountOfRest) {
            return {Scalar(static_cast<std::int32_t>(rest))};
        }
        const std::size_t count = field.count == kRestOfReply ? rest : static_cast<std::size_t>(field.count);
        Scalars scalars;
        for (std::size_t i = 0; i < count; ++i) {
            scalars.push_back(fitted(field.kind, mNext != mEnd ? mNext++ : nullptr));
        }
        return scalars;
    }

private:
    const Scalar* mNext;
    const Scalar* mEnd;
};

void write(android::Parcel& parcel, const Scalar& scalar) {
    if (const auto* const number = std::get_if<std::int32_t>(&scalar)) {
        parcel.writeInt32(*number);
    } else if (const auto* const real = std::get_if<double>(&scalar)) {
        parcel.writeDouble(*real);
    } else {
        parcel.writeCString(std::get<std::string>(scalar).c_str());
    }
}

} // namespace

Reply refusal(const Fault& fault) { return {static_cast<std::int32_t>(fault.result), fault.text, {}}; }

Reply replyWith(const Operation& operation, const Scalars& kept) {
    Reply reply;
    if (operation.shape == Shape::Status) {
        reply.result = std::get<std::int32_t>(fitted(Kind::Int32, kept.empty() ? nullptr : kept.data()));
        return reply;
    }
    Dealer dealer(kept);
    for (const ReplyField& field : operation.reply) {
        reply.fields.push_back(dealer.deal(field));
    }
    return reply;
}

void writeReply(const Reply& reply, android::Parcel& parcel) {
    parcel.writeInt32(reply.result);
    for (const Scalars& field : reply.fields) {
        std::for_each(field.begin(), field.end(), [&parcel](const Scalar& scalar) { write(parcel, scalar); });
    }
}

} // namespace simulator
