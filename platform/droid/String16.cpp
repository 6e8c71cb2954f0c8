#include <utils/String16.h>

#include "Utf.h"

#include <cstring>

namespace android {

String16::String16(const char16_t* text) : mText(text) {}
String16::String16(const char16_t* text, std::size_t length) : mText(text, length) {}
String16::String16(const char* utf8) : String16(utf8, std::strlen(utf8)) {}
String16::String16(const char* utf8, std::size_t length) : mText(utf8ToUtf16(utf8, length)) {}

} // namespace android
