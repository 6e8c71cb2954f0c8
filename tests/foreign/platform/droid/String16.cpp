#include <utils/String16.h>

#include "foreign/platform/droid/Utf8.h"

#include <atomic>
#include <string>
#include <utility>

namespace android {

struct String16::Shared {
    explicit Shared(std::u16string text) : units(std::move(text)) {}

    std::atomic<int> holders{1};
    const std::u16string units;
};

String16::String16() : mShared(new Shared({})) {}

String16::String16(const char* utf8) : mShared(new Shared(foreign::utf16(utf8))) {}

String16::String16(const char16_t* text) : mShared(new Shared(text)) {}

String16::String16(const String16& other) : mShared(other.mShared) { mShared->holders.fetch_add(1); }

String16::~String16() {
    if (mShared->holders.fetch_sub(1) == 1) {
        delete mShared;
    }
}

String16& String16::operator=(const String16& other) {
    String16 copy(other);
    std::swap(mShared, copy.mShared);
    return *this;
}

const char16_t* String16::string() const { return mShared->units.c_str(); }

std::size_t String16::size() const { return mShared->units.size(); }

bool String16::operator==(const String16& other) const { return mShared->units == other.mShared->units; }

bool String16::operator!=(const String16& other) const { return !(*this == other); }

} // namespace android
