#pragma once

#include <binder/Parcel.h>

#include <initializer_list>

namespace android {
class TVBaseClient;
}

/** What all command calls are made of. */
namespace kelutv::internal {

/** One argument of a command, with the form in which it travels. It refers to what it is made of. */
class Argument {
public:
    Argument(int number) : mKind(Kind::Number), mNumber(number) {}
    Argument(const char* text) : mKind(Kind::Text), mText(text) {}
    Argument(const android::Parcel& parcel) : mKind(Kind::Parcel), mParcel(&parcel) {}
    /** No bytes for a null pointer or a length below 1. */
    Argument(const void* bytes, int length)
        : mKind(Kind::Bytes), mBytes(bytes), mLength(bytes == nullptr || length < 0 ? 0 : length) {}

    /** Returns 0, or another number when it could not be written. */
    android::status_t appendTo(android::Parcel& request) const;

private:
    enum class Kind { Number, Text, Parcel, Bytes };

    Kind mKind;
    union {
        int mNumber;
        const char* mText;
        const android::Parcel* mParcel;
        const void* mBytes;
    };
    int mLength = 0;
};

/**
 * Sends one command; false when the service did not answer. Nothing is sent when a part of the request could not be
 * written.
 */
bool exchange(android::TVBaseClient& client, int command, std::initializer_list<Argument> arguments,
              android::Parcel& reply);

/** Sends one command; true when the service answered 0, the reply standing behind that word. */
bool succeeds(android::TVBaseClient& client, int command, std::initializer_list<Argument> arguments,
              android::Parcel& reply);

} // namespace kelutv::internal
