#pragma once

#include "torture/operations/Operation.h"

#include <binder/Parcel.h>
#include <kelutv/hdmicec_types.h>

#include <array>
#include <functional>
#include <list>
#include <string>
#include <vector>

namespace kelutv::test {

/** What an operation has given; neither taking it down nor telling it needs memory. */
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

    /** Adds the result, and each of the others that was touched: "0 count=3 numbers=1,2,3". */
    void tell(Outcome& outcome) const;
};

/** An operation that leaves in `Seen` what it gives. */
Operation observed(const char* name, const std::function<void(Seen&)>& call, std::vector<Exchange> exchanges,
                   std::string right, std::vector<std::string> failures);

} // namespace kelutv::test
