#include "InterfaceToken.h"

#include "ParcelRoom.h"
#include "Utf.h"

#include <android/log.h>
#include <binder/IPCThreadState.h>

#include <algorithm>
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

/** The name in a token of the level at `start`; null when none of its form stands there. */
Name nameIn(const Parcel& request, size_t start, BinderLevel level) {
    request.setDataPosition(start);
    const size_t size = sizeOfHeaders(level);
    const auto* const headers = static_cast<const uint8_t*>(request.readInplace(size));
    if (headers == nullptr) {
        return {};
    }
    int32_t last = 0;
    std::memcpy(&last, headers + size - sizeof(last), sizeof(last));
    if (level == BinderLevel::k30 && last != kSystemHeader) {
        return {};
    }
    Name name;
    name.text = request.readString16Inplace(&name.length);
    return name;
}

bool isName(const Name& name, const String16& wanted) {
    return name.text != nullptr && name.length == wanted.size() &&
           std::equal(name.text, name.text + name.length, wanted.string());
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
    const size_t start = request.dataPosition();
    for (const BinderLevel level : kByParticularity) {
        if (isName(nameIn(request, start, level), wanted)) {
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

} // namespace android
