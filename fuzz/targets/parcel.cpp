#include "fuzz/support/Input.h"
#include "fuzz/support/Target.h"

#include "droid/ReceivedParcel.h"

#include <binder/Parcel.h>

#include <array>
#include <string>

/** Sequences of reads and writes on a parcel that came in and on one that is put together. */
namespace kelutv::fuzz {
namespace {

using android::Parcel;
using android::String16;

using Step = void (*)(Parcel& parcel, Input& input);

void readText(Parcel& parcel, Input&) {
    if (const char* const text = parcel.readCString(); text != nullptr) {
        touch(text, std::string(text).size() + 1);
    }
}

void readUnits(Parcel& parcel, Input&) {
    std::size_t length = 0;
    if (const char16_t* const units = parcel.readString16Inplace(&length); units != nullptr) {
        touch(units, (length + 1) * sizeof(char16_t));
    } else {
        require(length == 0, "a text that is not there has no length");
    }
}

void readInplace(Parcel& parcel, Input& input) {
    const auto length = static_cast<std::size_t>(input.number<std::int32_t>());
    const std::size_t before = parcel.dataAvail();
    const void* const bytes = parcel.readInplace(length);
    require(bytes == nullptr || length <= before, "no more is read than there is");
    touch(bytes, bytes == nullptr ? 0 : length);
}

void readBlock(Parcel& parcel, Input& input) {
    Bytes room(input.number<std::uint16_t>());
    parcel.read(room.data(), room.size());
}

void readToken(Parcel& parcel, Input&) { parcel.enforceInterface(String16("android.ITVBaseService")); }

void appendItself(Parcel& parcel, Input& input) {
    const auto start = input.number<std::uint32_t>();
    parcel.appendFrom(&parcel, start, input.number<std::uint32_t>());
}

void appendOther(Parcel& parcel, Input& input) {
    Parcel other;
    const Bytes bytes = input.block();
    other.setData(bytes.data(), bytes.size());
    parcel.appendFrom(&other, 0, other.dataSize());
}

void writeUnits(Parcel& parcel, Input& input) {
    const Bytes bytes = input.block();
    std::u16string units(bytes.begin(), bytes.end());
    parcel.writeString16(units.data(), units.size());
}

void setData(Parcel& parcel, Input& input) {
    const Bytes bytes = input.block();
    require(parcel.setData(bytes.data(), bytes.size()) == android::NO_ERROR, "content of this size is taken");
    require(parcel.dataPosition() == 0 && parcel.dataSize() == bytes.size(), "the content is the new one");
}

constexpr std::array<Step, 24> kSteps{
    [](Parcel& parcel, Input&) { parcel.readInt32(); },
    [](Parcel& parcel, Input&) { parcel.readInt64(); },
    [](Parcel& parcel, Input&) { parcel.readDouble(); },
    readText,
    [](Parcel& parcel, Input&) { parcel.readString16(); },
    readUnits,
    readInplace,
    readBlock,
    readToken,
    [](Parcel& parcel, Input& input) { parcel.setDataPosition(input.number<std::uint32_t>() & ~3U); },
    [](Parcel& parcel, Input& input) { parcel.writeInt32(input.number<std::int32_t>()); },
    [](Parcel& parcel, Input& input) { parcel.writeInt64(input.number<std::int64_t>()); },
    [](Parcel& parcel, Input& input) { parcel.writeDouble(input.number<double>()); },
    [](Parcel& parcel, Input& input) { parcel.writeCString(input.text().c_str()); },
    [](Parcel& parcel, Input&) { parcel.writeCString(nullptr); },
    [](Parcel& parcel, Input& input) { parcel.writeString16(String16(input.text().c_str())); },
    [](Parcel& parcel, Input&) { parcel.writeString16(nullptr, 0); },
    writeUnits,
    [](Parcel& parcel, Input&) { parcel.writeInterfaceToken(String16("android.ITVBaseService")); },
    [](Parcel& parcel, Input& input) {
        const Bytes bytes = input.block();
        parcel.write(bytes.data(), bytes.size());
    },
    appendItself,
    appendOther,
    setData,
    [](Parcel& parcel, Input&) { parcel.freeData(); },
};

void run(Parcel& parcel, Input& input) {
    // Appending a parcel to itself doubles it each time.
    constexpr std::size_t kLarge = 1U << 16;
    while (!input.isEmpty() && parcel.dataSize() < kLarge) {
        kSteps[input.below(kSteps.size())](parcel, input);
        require(parcel.dataPosition() <= parcel.dataSize(), "the position is not behind the end");
        require(parcel.dataAvail() == parcel.dataSize() - parcel.dataPosition(), "what is left is behind the position");
    }
    touch(parcel.data(), parcel.dataSize());
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kelutv::fuzz::Input input(data, size);
    const kelutv::fuzz::Bytes content = input.block();
    const auto bytes = kelutv::fuzz::exactCopyOf(content);
    android::ReceivedParcel received(bytes.get(), content.size());
    kelutv::fuzz::run(received.parcel(), input);
    return 0;
}
