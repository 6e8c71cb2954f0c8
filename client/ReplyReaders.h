#pragma once

#include <binder/Parcel.h>

#include <array>
#include <initializer_list>
#include <list>
#include <string>

/** What the modules share in laying out requests, reading answers and handing them to the caller. */
namespace kelutv::internal {

/** An item answer always holds this many ints. */
constexpr int kItemValueCount = 255;

using ItemBuffer = std::array<int, kItemValueCount>;

/** One answered item of the C layer; all zeros when the read failed. */
struct ItemAnswer {
    ItemBuffer values{};
    int result = -1;
};

/** Appends one int32 per word. */
void writeWords(android::Parcel& request, std::initializer_list<int> words);

/** Reads one int32 into each word; 0 where the reply has ended. */
void readWords(const android::Parcel& reply, std::initializer_list<int*> words);

/** Writes `kItemValueCount` ints; 0 where the reply has ended. */
void readItemValues(const android::Parcel& reply, int* values);

/** Copies the reply's next text, terminator included; false, with nothing written, when the reply has none. */
bool copyText(const android::Parcel& reply, char* text);

/** The texts up to the end of the reply, or to the first that has no terminator. */
std::list<std::string> readTexts(const android::Parcel& reply);

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

/**
 * Stores a list that is led by its count. The count is stored as it came; no more entries are copied than an answer
 * holds. Returns 0, or -1 with nothing stored when the count is not positive.
 */
int storeList(const ItemAnswer& answer, int* list, int* size);

} // namespace kelutv::internal
