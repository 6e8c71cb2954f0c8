#include "EntryName.h"

#include "droid/Utf.h"

#include <cstdio>

namespace android {

namespace {

bool isPlain(char character, bool first) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '_' || character == '-' ||
           (character == '.' && !first);
}

int hexDigit(char character) {
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    return character >= 'A' && character <= 'F' ? character - 'A' + 10 : -1;
}

} // namespace

std::string entryNameOf(const String16& service) {
    std::string entry;
    for (const char character : utf16ToUtf8(service.string(), service.size())) {
        if (isPlain(character, entry.empty())) {
            entry.push_back(character);
        } else {
            char escaped[4];
            std::snprintf(escaped, sizeof(escaped), "%%%02X", static_cast<unsigned char>(character));
            entry += escaped;
        }
    }
    return entry;
}

String16 serviceNameOf(const std::string& entry) {
    std::string name;
    for (std::size_t at = 0; at < entry.size(); ++at) {
        const int high = at + 2 < entry.size() ? hexDigit(entry[at + 1]) : -1;
        const int low = at + 2 < entry.size() ? hexDigit(entry[at + 2]) : -1;
        if (entry[at] == '%' && high >= 0 && low >= 0) {
            name.push_back(static_cast<char>(high * 16 + low));
            at += 2;
        } else {
            name.push_back(entry[at]);
        }
    }
    return String16(name.c_str(), name.size());
}

} // namespace android
