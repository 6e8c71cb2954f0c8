#pragma once

#include <foreign/export.h>

#include <cstddef>

namespace android {

/** A UTF-16 text. Its units stand behind a count of those who share them. */
class FOREIGN_API String16 {
public:
    String16();
    explicit String16(const char* utf8);
    explicit String16(const char16_t* text);
    String16(const String16& other);
    ~String16();
    String16& operator=(const String16& other);

    const char16_t* string() const;
    std::size_t size() const;

    bool operator==(const String16& other) const;
    bool operator!=(const String16& other) const;

private:
    struct Shared;
    Shared* mShared;
};

} // namespace android
