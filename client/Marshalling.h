#pragma once

#include <binder/Parcel.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <list>
#include <string>
#include <type_traits>

/** What the modules share in laying out requests, reading answers and handing them to the caller. */
namespace kelutv::internal {

/** An item answer always holds this many ints. */
constexpr int kItemValueCount = 255;

/** One more than an answer fills; the last stays 0. */
using ItemBuffer = std::array<int, kItemValueCount + 1>;

/** One answered item of the C layer; all zeros when the read failed. */
struct ItemAnswer {
    ItemBuffer values{};
    int result = -1;
};

/** The words of a record that has nothing but ints, in the order of its fields, which is their order on the wire. */
template <typename Record> struct RecordWords {
    static_assert(std::is_trivially_copyable_v<Record> && sizeof(Record) % sizeof(std::int32_t) == 0);
    std::array<int, sizeof(Record) / sizeof(std::int32_t)> words{};
};

/** The arguments of one command, in the order in which they are added. One that could not be written keeps all back. */
class Request {
public:
    Request& word(int value);
    Request& words(std::initializer_list<int> values) {
        return block(values.begin(), static_cast<int>(values.size()), sizeof(int));
    }
    Request& words(std::initializer_list<unsigned int> values) {
        return block(values.begin(), static_cast<int>(values.size()), sizeof(unsigned int));
    }

    /** `count` values; none for a null pointer or a count below 1. */
    Request& values(const int* values, int count) { return block(values, count, sizeof(int)); }
    Request& values(const double* values, int count) { return block(values, count, sizeof(double)); }

    /** The bytes and a terminator; null is the empty text. */
    Request& text(const char* text);
    /** The text in UTF-16, led by its length. */
    Request& wideText(const char* text);

    /** Every field of a record of ints. */
    template <typename Record> Request& record(const Record& record) {
        RecordWords<Record> fields;
        std::memcpy(fields.words.data(), &record, sizeof record);
        return values(fields.words.data(), static_cast<int>(fields.words.size()));
    }

    /** Sends them. Returns the service's result; -1, logged, when the link fails. */
    int send(int command) const;
    /** Sends them. Returns 0 and the values that answer the command; -1, logged, for every failure. */
    int send(int command, android::Parcel& reply) const;
    /** Sends two words before them. Returns as the first. */
    int sendBehind(int command, int first, int second) const;

private:
    Request& block(const void* values, int count, size_t size);
    template <typename... Arguments> int exchange(int command, Arguments&&... arguments) const;

    android::Parcel mArguments;
    android::status_t mWritten = android::NO_ERROR;
};

/** Reads one int32 into each word; 0 where the reply has ended. */
void readWords(const android::Parcel& reply, std::initializer_list<int*> words);
void readWords(const android::Parcel& reply, std::initializer_list<unsigned int*> words);

/** Reads one int32; false, with nothing written, where the reply has ended. */
bool readWord(const android::Parcel& reply, unsigned int& word);

/** Writes `count` ints, none for a count below 1; 0 where the reply has ended. */
void readValues(const android::Parcel& reply, int* values, std::int64_t count);

/** The same for doubles. */
void readValues(const android::Parcel& reply, double* values, std::int64_t count);

/**
 * Reads a count, then as many ints as it says and the reply holds; up to `kItemValueCount` of those missing are 0.
 * Returns the count as it came.
 */
int readCountedValues(const android::Parcel& reply, int* values);

/** Writes `kItemValueCount` ints; 0 where the reply has ended. */
void readItemValues(const android::Parcel& reply, int* values);

/** The ints up to the end of the reply; bytes that make no whole int are dropped. */
std::list<int> readNumbers(const android::Parcel& reply);

/** Reads the reply's next text; false, with nothing written, when the reply has none. */
bool readText(const android::Parcel& reply, std::string& text);

/** Copies a text, terminator included, unless the caller gave no place for it. */
void copyTextIfGiven(char* target, const char* text);

/** Copies the reply's next text, terminator included; false, with nothing written, when the reply has none. */
bool copyText(const android::Parcel& reply, char* text);

/** The texts up to the end of the reply, or to the first that has no terminator. */
std::list<std::string> readTexts(const android::Parcel& reply);

/** Reads every field of a record of ints; 0 where the reply has ended. */
template <typename Record> Record readRecord(const android::Parcel& reply) {
    RecordWords<Record> fields;
    readValues(reply, fields.words.data(), fields.words.size());
    Record record{};
    std::memcpy(&record, fields.words.data(), sizeof record);
    return record;
}

/** Stores the value unless the caller gave no place for it. */
template <typename T> void storeIfGiven(T* output, const T& value) {
    if (output != nullptr) {
        *output = value;
    }
}

/** Stores the first value as a flag; returns the read's result. */
int storeFlag(const ItemAnswer& answer, bool* flag);

/** Stores the first value; returns the read's result. */
int storeValue(const ItemAnswer& answer, int* value);

/** Stores the whole list, which may be empty, and its count, each where the caller gave a place for it. */
void copyNumbers(const std::list<int>& numbers, int* list, int* size);

/**
 * Stores the whole list and its count, each where the caller gave a place for it. Returns 0, or -1 with nothing stored
 * when the list is empty.
 */
int storeNumbers(const std::list<int>& numbers, int* list, int* size);

/** How many entries of a list led by its count an answer holds: the count, within what there is room for. */
int entriesOf(const ItemAnswer& answer);

/**
 * Stores a list that is led by its count, and the count as it came, 0 after a failed read, each where the caller gave a
 * place for it. No more entries are copied than an answer holds. Returns the read's result.
 */
int storeCountedList(const ItemAnswer& answer, int* list, int* size);

/**
 * Stores a list that is led by its count. The count is stored as it came; no more entries are copied than an answer
 * holds. Returns 0, or -1 with nothing stored when the count is not positive.
 */
int storeList(const ItemAnswer& answer, int* list, int* size);

} // namespace kelutv::internal
