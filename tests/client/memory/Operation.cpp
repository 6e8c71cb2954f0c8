#include "client/memory/Operation.h"

#include <algorithm>
#include <numeric>
#include <sstream>

namespace kelutv::test {

namespace {

template <typename Values> std::string joined(const Values& values) {
    std::ostringstream text;
    const char* separator = "";
    for (const auto& value : values) {
        text << separator << value;
        separator = ",";
    }
    return text.str();
}

template <typename Array, typename Value> auto touched(const Array& values, Value untouched) {
    const auto end = std::find(values.begin(), values.end(), untouched);
    return std::vector<typename Array::value_type>(values.begin(), end);
}

std::vector<std::string> wordsOf(const std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S>& devices) {
    std::vector<std::string> words;
    for (const auto& device : devices) {
        words.push_back(std::to_string(device.logAddr) + "/" + std::to_string(device.hdmiDevPort) + "/" +
                        device.deVName + "/" + device.phyAddr + "/" + device.hdmiListText);
    }
    return words;
}

std::vector<int> wordsOf(const android::Parcel& parcel) {
    std::vector<int> words;
    parcel.setDataPosition(0);
    while (parcel.dataAvail() >= sizeof(int)) {
        words.push_back(parcel.readInt32());
    }
    return words;
}

} // namespace

Seen::Seen() {
    numbers.fill(kUntouched);
    points.fill(kUntouched);
    text.fill(kUntouchedText);
}

std::string Seen::words() const {
    std::ostringstream words;
    words << result;
    const auto add = [&words](const char* name, const std::string& value) {
        if (!value.empty()) {
            words << ' ' << name << '=' << value;
        }
    };
    add("count", count == kUntouched ? "" : std::to_string(count));
    add("numbers", joined(touched(numbers, kUntouched)));
    add("points", joined(touched(points, kUntouched)));
    add("text", text.front() == kUntouchedText ? "" : std::string(text.data()));
    add("list", joined(list));
    add("texts", joined(texts));
    add("devices", joined(wordsOf(devices)));
    add("parcel", joined(wordsOf(parcel)));
    return words.str();
}

const std::vector<Operation>& operations() {
    static const std::vector<Operation> all = [] {
        std::vector<Operation> operations;
        for (const auto& group : {commandCallOperations(), requestOperations(), readerOperations()}) {
            operations.insert(operations.end(), group.begin(), group.end());
        }
        return operations;
    }();
    return all;
}

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

const char* longText() {
    static const std::string text(300, 'x');
    return text.c_str();
}

std::array<int, 100> hundredNumbers() {
    std::array<int, 100> numbers{};
    std::iota(numbers.begin(), numbers.end(), 1);
    return numbers;
}

std::string numbersUpTo(int last) {
    std::vector<int> numbers(static_cast<std::size_t>(last));
    std::iota(numbers.begin(), numbers.end(), 1);
    return joined(numbers);
}

} // namespace kelutv::test
