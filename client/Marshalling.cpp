#include "Marshalling.h"

#include "Failures.h"

#include <kelutv/link/TVBaseClient.h>

#include <utils/String16.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>

namespace kelutv::internal {

namespace {

/** Reads what the reply holds of `count` values in one piece; 0 where it has ended. */
template <typename Value> void readBlock(const android::Parcel& reply, Value* values, std::int64_t count) {
    if (count <= 0) {
        return;
    }
    const auto wanted = static_cast<std::uint64_t>(count);
    const std::uint64_t held = std::min<std::uint64_t>(wanted, reply.dataAvail() / sizeof(Value));
    const bool read = reply.read(values, static_cast<size_t>(held) * sizeof(Value)) == android::NO_ERROR;
    std::fill(values + (read ? held : 0), values + wanted, Value{});
}

} // namespace

Request& Request::word(int value) {
    mWritten |= mArguments.writeInt32(value);
    return *this;
}

Request& Request::block(const void* values, int count, size_t size) {
    if (values != nullptr && count > 0) {
        // More than a parcel holds may be more than a word counts.
        const auto length = static_cast<std::uint64_t>(count) * size;
        mWritten |= length <= INT32_MAX ? mArguments.write(values, static_cast<size_t>(length)) : -EINVAL;
    }
    return *this;
}

Request& Request::text(const char* text) {
    mWritten |= mArguments.writeCString(text);
    return *this;
}

Request& Request::wideText(const char* text) {
    mWritten |= allocating([&] { return mArguments.writeString16(android::String16(text)); });
    return *this;
}

template <typename... Arguments> int Request::exchange(int command, Arguments&&... arguments) const {
    if (mWritten != android::NO_ERROR) {
        logFailedCall();
        return kFailed;
    }
    return android::TVBaseClient::self()->exeCmdSet(command, arguments...);
}

int Request::send(int command) const { return exchange(command, mArguments); }

int Request::send(int command, android::Parcel& reply) const { return exchange(command, mArguments, reply); }

int Request::sendBehind(int command, int first, int second) const {
    return exchange(command, first, second, mArguments);
}

void readWords(const android::Parcel& reply, std::initializer_list<int*> words) {
    for (int* word : words) {
        *word = reply.readInt32();
    }
}

void readWords(const android::Parcel& reply, std::initializer_list<unsigned int*> words) {
    for (unsigned int* word : words) {
        *word = static_cast<unsigned int>(reply.readInt32());
    }
}

bool readWord(const android::Parcel& reply, unsigned int& word) {
    std::int32_t read = 0;
    if (reply.readInt32(&read) != android::NO_ERROR) {
        return false;
    }
    word = static_cast<unsigned int>(read);
    return true;
}

void readValues(const android::Parcel& reply, int* values, std::int64_t count) { readBlock(reply, values, count); }

void readValues(const android::Parcel& reply, double* values, std::int64_t count) { readBlock(reply, values, count); }

int readCountedValues(const android::Parcel& reply, int* values) {
    const int count = reply.readInt32();
    const auto held = static_cast<std::int64_t>(reply.dataAvail() / sizeof(std::int32_t));
    readValues(reply, values, std::min<std::int64_t>(count, std::max<std::int64_t>(held, kItemValueCount)));
    return count;
}

void readItemValues(const android::Parcel& reply, int* values) { readValues(reply, values, kItemValueCount); }

std::list<int> readNumbers(const android::Parcel& reply) {
    return allocating([&] {
        std::list<int> numbers;
        while (reply.dataAvail() >= sizeof(std::int32_t)) {
            numbers.push_back(reply.readInt32());
        }
        return numbers;
    });
}

bool readText(const android::Parcel& reply, std::string& text) {
    const char* found = reply.readCString();
    if (found == nullptr) {
        return false;
    }
    text = found;
    return true;
}

void copyTextIfGiven(char* target, const char* text) {
    if (target != nullptr) {
        std::memcpy(target, text, std::strlen(text) + 1);
    }
}

bool copyText(const android::Parcel& reply, char* text) {
    const char* found = reply.readCString();
    if (found == nullptr) {
        return false;
    }
    copyTextIfGiven(text, found);
    return true;
}

std::list<std::string> readTexts(const android::Parcel& reply) {
    return allocating([&] {
        std::list<std::string> texts;
        for (std::string text; readText(reply, text);) {
            texts.push_back(text);
        }
        return texts;
    });
}

int storeFlag(const ItemAnswer& answer, bool* flag) {
    storeIfGiven(flag, answer.values[0] != 0);
    return answer.result;
}

int storeValue(const ItemAnswer& answer, int* value) {
    storeIfGiven(value, answer.values[0]);
    return answer.result;
}

void copyNumbers(const std::list<int>& numbers, int* list, int* size) {
    if (list != nullptr) {
        std::copy(numbers.begin(), numbers.end(), list);
    }
    storeIfGiven(size, static_cast<int>(numbers.size()));
}

int storeNumbers(const std::list<int>& numbers, int* list, int* size) {
    if (numbers.empty()) {
        return -1;
    }
    copyNumbers(numbers, list, size);
    return 0;
}

int entriesOf(const ItemAnswer& answer) { return std::clamp(answer.values[0], 0, kItemValueCount - 1); }

int storeCountedList(const ItemAnswer& answer, int* list, int* size) {
    if (list != nullptr) {
        std::copy_n(answer.values.begin() + 1, entriesOf(answer), list);
    }
    storeIfGiven(size, answer.values[0]);
    return answer.result;
}

int storeList(const ItemAnswer& answer, int* list, int* size) {
    const int count = answer.values[0];
    if (count <= 0) {
        return -1;
    }
    *size = count;
    std::copy_n(answer.values.begin() + 1, entriesOf(answer), list);
    return 0;
}

} // namespace kelutv::internal
