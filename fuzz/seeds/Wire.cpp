#include "fuzz/seeds/Wire.h"

#include "fuzz/seeds/Seed.h"

#include "wire/codec/Reply.h"

#include <algorithm>

namespace kelutv::fuzz {
namespace {

using android::Parcel;
using wire::Encoding;

constexpr std::int32_t kEntries = 3;

bool isLength(const wire::Operation& operation, std::size_t index) {
    return std::any_of(operation.request.begin(), operation.request.end(), [index](const wire::RequestItem& item) {
        return (item.encoding == Encoding::Ints || item.encoding == Encoding::Doubles ||
                item.encoding == Encoding::Bytes) &&
               item.lengthItem == static_cast<int>(index);
    });
}

void write(Parcel& parcel, Encoding encoding, std::int32_t number) {
    switch (encoding) {
    case Encoding::Int32:
        parcel.writeInt32(number);
        break;
    case Encoding::Double:
        parcel.writeDouble(number + 0.5);
        break;
    case Encoding::CString:
        parcel.writeCString("text");
        break;
    case Encoding::String16:
        parcel.writeString16(android::String16("text"));
        break;
    case Encoding::Ints:
        for (std::int32_t i = 0; i < kEntries; ++i) {
            parcel.writeInt32(number + i);
        }
        break;
    case Encoding::Doubles:
        for (std::int32_t i = 0; i < kEntries; ++i) {
            parcel.writeDouble(number + i);
        }
        break;
    case Encoding::Bytes:
        parcel.write("abc", kEntries);
        break;
    }
}

} // namespace

Bytes bytesOf(const Parcel& parcel) { return {parcel.data(), parcel.data() + parcel.dataSize()}; }

Bytes argumentsOf(const wire::Operation& operation, std::int32_t first) {
    Parcel parcel;
    for (std::size_t i = 0; i < operation.request.size(); ++i) {
        write(parcel, operation.request[i].encoding, isLength(operation, i) ? kEntries : first);
    }
    return bytesOf(parcel);
}

Bytes tokenOf(int level) {
    Parcel parcel;
    parcel.writeInt32(0x00400000);
    if (level >= 29) {
        parcel.writeInt32(-1);
    }
    if (level >= 30) {
        parcel.writeInt32(0x53595354);
    }
    parcel.writeString16(android::String16("android.ITVBaseService"));
    return bytesOf(parcel);
}

Bytes requestOf(std::int32_t command, const Bytes& arguments) {
    Parcel parcel;
    parcel.writeInterfaceToken(android::String16("android.ITVBaseService"));
    parcel.writeInt32(command);
    parcel.write(arguments.data(), arguments.size());
    return bytesOf(parcel);
}

Bytes replyOf(const wire::Operation& operation) {
    Parcel parcel;
    wire::writeReply(wire::replyWith(operation, {}, {}), parcel);
    return bytesOf(parcel);
}

} // namespace kelutv::fuzz
