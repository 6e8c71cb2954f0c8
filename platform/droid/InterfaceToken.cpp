#include "InterfaceToken.h"

#include "ParcelRoom.h"
#include "Utf.h"

#include <android/log.h>
#include <binder/IPCThreadState.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <string>

namespace android {

namespace {

constexpr const char* kTag = "Parcel";
constexpr int32_t kStrictModePenaltyGather = 0x40 << 16;
constexpr int32_t kNoWorkSource = -1;
// "SYST": the sender is a part of the system.
constexpr int32_t kSystemHeader = 0x53595354;
constexpr size_t kMostWordsShown = 4;
// The most particular first: what fits one of them may pass for one further on.
constexpr std::array<BinderLevel, 3> kByParticularity{BinderLevel::k30, BinderLevel::k28, BinderLevel::k29};

struct Name {
    const char16_t* text = nullptr;
    size_t length = 0;
};

/** The size of the words that a token of the level begins with: one, and one more with each level. */
constexpr size_t sizeOfHeaders(BinderLevel level) {
    return sizeof(int32_t) * static_cast<size_t>(1 + numberOf(level) - numberOf(BinderLevel::k28));
}

int32_t wordAt(const uint8_t* place) {
    int32_t word = 0;
    std::memcpy(&word, place, sizeof(word));
    return word;
}

/** The name in a token of the level at `start`; null when none of its form stands there. */
Name nameIn(const Parcel& request, size_t start, BinderLevel level) {
    request.setDataPosition(start);
    const size_t size = sizeOfHeaders(level);
    const auto* const headers = static_cast<const uint8_t*>(request.readInplace(size));
    if (headers == nullptr) {
        return {};
    }
    if (level == BinderLevel::k30 && wordAt(headers + size - sizeof(int32_t)) != kSystemHeader) {
        return {};
    }
    Name name;
    name.text = request.readString16Inplace(&name.length);
    return name;
}

/** Whether a token of the level that names the interface stands at the position, which is behind it then. */
bool takeToken(const Parcel& request, BinderLevel level, const String16& wanted) {
    const size_t headers = sizeOfHeaders(level);
    const size_t size = headers + stringSize(wanted.size());
    if (request.dataAvail() < size) {
        return false;
    }
    const uint8_t* const start = request.data() + request.dataPosition();
    const uint8_t* const name = start + headers;
    if (wordAt(name) != static_cast<int32_t>(wanted.size()) ||
        (level == BinderLevel::k30 && wordAt(name - sizeof(int32_t)) != kSystemHeader) ||
        std::memcmp(name + sizeof(int32_t), wanted.string(), wanted.size() * sizeof(char16_t)) != 0) {
        return false;
    }
    request.setDataPosition(request.dataPosition() + size);
    return true;
}

bool hasForm(const Name& name) { return name.text != nullptr && name.text[name.length] == 0; }

void tellOfOther(BinderLevel level) {
    static std::atomic<bool> told{false};
    if (level != binderLevel() && !told.exchange(true)) {
        __android_log_print(ANDROID_LOG_INFO, kTag,
                            "there are requests of binder level %d; this process writes level %d", numberOf(level),
                            numberOf(binderLevel()));
    }
}

std::string firstWords(const Parcel& request, size_t start) {
    request.setDataPosition(start);
    std::string words;
    uint32_t word = 0;
    for (size_t i = 0; i < kMostWordsShown && request.read(&word, sizeof(word)) == NO_ERROR; ++i) {
        std::array<char, 12> text{};
        std::snprintf(text.data(), text.size(), " %08X", word);
        words += text.data();
    }
    return words.empty() ? " nothing" : words;
}

void refuse(const Name& name, BinderLevel level, const std::string& wanted) {
    __android_log_print(ANDROID_LOG_WARN, kTag, "request of binder level %d names the interface \"%s\" and not \"%s\"",
                        numberOf(level), printable(name.text, name.length).c_str(), wanted.c_str());
}

/** What stands at the position, of whatever level, where the token of this process's level does not. */
[[gnu::cold, gnu::noinline]] InterfaceToken readOtherToken(const Parcel& request, const String16& wanted) {
    const size_t start = request.dataPosition();
    for (const BinderLevel level : kByParticularity) {
        if (takeToken(request, level, wanted)) {
            tellOfOther(level);
            return {level, true};
        }
    }
    const std::string shown = printable(wanted.string(), wanted.size());
    for (const BinderLevel level : kByParticularity) {
        if (const Name name = nameIn(request, start, level); hasForm(name)) {
            refuse(name, level, shown);
            return {level, false};
        }
    }
    __android_log_print(
        ANDROID_LOG_WARN, kTag,
        "request begins with%s, which is no token of binder level 28, 29 or 30, and not with that of \"%s\"",
        firstWords(request, start).c_str(), shown.c_str());
    return {std::nullopt, false};
}

} // namespace

status_t writeInterfaceToken(Parcel* request, BinderLevel level, const String16& interface) {
    const int32_t policy = IPCThreadState::self()->getStrictModePolicy() | kStrictModePenaltyGather;
    const size_t headers = sizeOfHeaders(level);
    const size_t size = headers + stringSize(interface.size());
    if (!request->makeRoom(size)) {
        return NO_MEMORY;
    }
    uint8_t* const place = request->advance(size);
    std::memcpy(place, &policy, sizeof(policy));
    if (level != BinderLevel::k28) {
        std::memcpy(place + sizeof(policy), &kNoWorkSource, sizeof(kNoWorkSource));
    }
    if (level == BinderLevel::k30) {
        std::memcpy(place + headers - sizeof(kSystemHeader), &kSystemHeader, sizeof(kSystemHeader));
    }
    putString(place + headers, interface.string(), interface.size());
    return NO_ERROR;
}

InterfaceToken readInterfaceToken(const Parcel& request, const String16& wanted) {
    const BinderLevel own = binderLevel();
    return takeToken(request, own, wanted) ? InterfaceToken{own, true} : readOtherToken(request, wanted);
}

} // namespace android
