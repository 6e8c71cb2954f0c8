#pragma once

#include "support/Wire.h"

#include <binder/Parcel.h>
#include <kelutv/hdmicec_types.h>

#include <array>
#include <functional>
#include <list>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::test {

/** What an operation has given; taking it down needs no memory. */
struct Seen {
    static constexpr int kUntouched = 0x5A5A5A5A;
    static constexpr char kUntouchedText = '~';

    Seen();

    int result = kUntouched;
    int count = kUntouched;
    std::array<int, 300> numbers{};
    std::array<double, 100> points{};
    std::array<char, 400> text{};
    std::list<int> list;
    std::list<std::string> texts;
    std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S> devices;
    android::Parcel parcel;

    /** The result, and each of the others that was touched: "0 numbers=1,2,3 count=3". */
    std::string words() const;
};

/** One operation of the library with what a service answers it, and all that may come of it. */
struct Operation {
    std::string name;
    std::function<void(Seen&)> call;
    /** Every request that may be sent, whole. */
    std::vector<Bytes> requests;
    /** What the service answers, by command. */
    std::vector<std::pair<int, Bytes>> replies;
    /** The outcome when all went well. */
    std::string right;
    /** The documented outcomes of a failure. */
    std::vector<std::string> failures;
    /** Whether the link is made by the operation itself. */
    bool connects = false;
};

std::vector<Operation> commandCallOperations();
std::vector<Operation> requestOperations();
std::vector<Operation> readerOperations();

/** All of the above. */
const std::vector<Operation>& operations();

void PrintTo(const Operation& operation, std::ostream* out);

/** More bytes than a parcel holds without memory of its own. */
const char* longText();
/** 1, 2, 3 and so on. */
std::array<int, 100> hundredNumbers();
/** "1,2,3" up to `last`. */
std::string numbersUpTo(int last);

} // namespace kelutv::test
