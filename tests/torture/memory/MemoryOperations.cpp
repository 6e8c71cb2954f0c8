#include "torture/memory/MemoryOperations.h"

#include <iterator>
#include <numeric>

namespace kelutv::test {

std::vector<Operation> memoryOperations() {
    std::vector<Operation> all;
    for (std::vector<Operation> part : {commandCallOperations(), requestOperations(), readerOperations()}) {
        all.insert(all.end(), std::make_move_iterator(part.begin()), std::make_move_iterator(part.end()));
    }
    return all;
}

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
    std::string text;
    for (int number = 1; number <= last; ++number) {
        text += (number > 1 ? "," : "") + std::to_string(number);
    }
    return text;
}

} // namespace kelutv::test
