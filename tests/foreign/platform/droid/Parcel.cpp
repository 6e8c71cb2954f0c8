#include <binder/Parcel.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace android {

struct Parcel::Content {
    std::vector<std::uint8_t> bytes;
    std::size_t position = 0;
};

namespace {

constexpr std::size_t kAlignment = 4;
constexpr std::uint32_t kStrictMode = 0x80000000;
constexpr std::int32_t kNoWorkSource = -1;
constexpr std::uint32_t kHeader = 0x53595354; // "SYST"

std::size_t padded(std::size_t length) { return (length + kAlignment - 1) / kAlignment * kAlignment; }

bool isNameAlone() {
    const char* const form = std::getenv("FOREIGN_TOKEN");
    return form != nullptr && std::strcmp(form, "name") == 0;
}

} // namespace

Parcel::Parcel() : mContent(new Content) {}

Parcel::~Parcel() { delete mContent; }

const std::uint8_t* Parcel::data() const { return mContent->bytes.data(); }

std::size_t Parcel::dataSize() const { return mContent->bytes.size(); }

std::size_t Parcel::dataAvail() const { return mContent->bytes.size() - mContent->position; }

status_t Parcel::setData(const std::uint8_t* bytes, std::size_t length) {
    mContent->bytes = std::vector<std::uint8_t>(bytes, bytes + length);
    mContent->position = 0;
    return NO_ERROR;
}

status_t Parcel::appendFrom(const Parcel* other, std::size_t start, std::size_t length) {
    const std::vector<std::uint8_t> source = other->mContent->bytes;
    if (start > source.size() || length > source.size() - start) {
        return NOT_THERE;
    }
    mContent->bytes.insert(mContent->bytes.end(), source.data() + start, source.data() + start + length);
    return NO_ERROR;
}

status_t Parcel::writeInterfaceToken(const String16& interface) {
    if (!isNameAlone()) {
        writeInt32(static_cast<std::int32_t>(kStrictMode));
        writeInt32(kNoWorkSource);
        writeInt32(static_cast<std::int32_t>(kHeader));
    }
    return writeString16(interface);
}

status_t Parcel::write(const void* bytes, std::size_t length) {
    const auto* const first = static_cast<const std::uint8_t*>(bytes);
    mContent->bytes.insert(mContent->bytes.end(), first, first + length);
    mContent->bytes.resize(padded(mContent->bytes.size()));
    return NO_ERROR;
}

status_t Parcel::writeInt32(std::int32_t value) { return write(&value, sizeof(value)); }

status_t Parcel::writeDouble(double value) { return write(&value, sizeof(value)); }

status_t Parcel::writeCString(const char* text) {
    const std::string whole = text == nullptr ? "" : text;
    return write(whole.c_str(), whole.size() + 1);
}

status_t Parcel::writeString16(const String16& text) {
    writeInt32(static_cast<std::int32_t>(text.size()));
    return write(text.string(), (text.size() + 1) * sizeof(char16_t));
}

status_t Parcel::read(void* bytes, std::size_t length) const {
    if (length > dataAvail()) {
        return NOT_THERE;
    }
    std::copy_n(mContent->bytes.begin() + static_cast<std::ptrdiff_t>(mContent->position), length,
                static_cast<std::uint8_t*>(bytes));
    mContent->position = std::min(mContent->position + padded(length), mContent->bytes.size());
    return NO_ERROR;
}

std::int32_t Parcel::readInt32() const {
    std::int32_t value = 0;
    read(&value, sizeof(value));
    return value;
}

status_t Parcel::readInt32(std::int32_t* value) const { return read(value, sizeof(*value)); }

double Parcel::readDouble() const {
    double value = 0;
    read(&value, sizeof(value));
    return value;
}

const char* Parcel::readCString() const {
    const auto first = mContent->bytes.begin() + static_cast<std::ptrdiff_t>(mContent->position);
    const auto end = std::find(first, mContent->bytes.end(), std::uint8_t{0});
    if (end == mContent->bytes.end()) {
        return nullptr;
    }
    const std::size_t length = static_cast<std::size_t>(end - first) + 1;
    mContent->position = std::min(mContent->position + padded(length), mContent->bytes.size());
    return reinterpret_cast<const char*>(&*first);
}

} // namespace android
