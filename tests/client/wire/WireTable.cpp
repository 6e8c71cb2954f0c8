#include "client/wire/WireTable.h"

#include <ostream>

namespace kelutv::test {

void Observed::add(const char* label, const char* value) {
    addLabel(label, value);
    mText += ';';
}

void Observed::addLabel(const char* label, const char* opening) { mText.append(label).append("=").append(opening); }

void Observed::addNumber(const char* label, int value) { add(label, std::to_string(value).c_str()); }

void Observed::addNumbers(const char* label, const int* values, std::size_t count) {
    addLabel(label, "[");
    for (std::size_t start = 0, next = 0; start < count; start = next) {
        while (next < count && values[next] == values[start]) {
            ++next;
        }
        mText += (start == 0 ? "" : " ") + std::to_string(values[start]);
        if (next - start > 1) {
            mText += '*' + std::to_string(next - start);
        }
    }
    mText += "];";
}

std::string operationName(const ::testing::TestParamInfo<WireOperation>& info) { return info.param.name; }

void PrintTo(const WireOperation& operation, std::ostream* out) { *out << operation.name; }

} // namespace kelutv::test
