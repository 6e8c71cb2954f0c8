#pragma once

#include <cstddef>
#include <string>

namespace android {

/** A UTF-16 string. */
class String16 {
public:
    String16() = default;
    explicit String16(const char16_t* text);
    String16(const char16_t* text, std::size_t length);
    /** From UTF-8; a byte sequence that is no UTF-8 becomes U+FFFD. */
    explicit String16(const char* utf8);
    String16(const char* utf8, std::size_t length);

    const char16_t* string() const { return mText.c_str(); }
    /** Length in 16-bit units, without the terminator. */
    std::size_t size() const { return mText.size(); }

    bool operator==(const String16& other) const { return mText == other.mText; }
    bool operator!=(const String16& other) const { return mText != other.mText; }
    bool operator<(const String16& other) const { return mText < other.mText; }

private:
    std::u16string mText;
};

} // namespace android
