#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace kelutv::test {

/** The rows of a table that lives as long as the program. */
template <typename Row> class Rows {
public:
    constexpr Rows() = default;
    template <std::size_t count>
    constexpr Rows(const Row (&rows)[count]) : mRows(rows), mCount(count) {} // NOLINT(google-explicit-constructor)

    constexpr const Row* begin() const { return mRows; }
    constexpr const Row* end() const { return mRows + mCount; }

private:
    const Row* mRows = nullptr;
    std::size_t mCount = 0;
};

/** One answer of the service and what the call must make of it. */
struct Answer {
    std::string_view reply;
    const char* observed;
    const char* log;
};

/** The same call with one pointer null: it is refused and nothing is sent. */
struct RefusedNull {
    const char* parameter;
    std::string (*call)();
    const char* observed;
    const char* log;
};

/** One operation; a null text stands for an outcome that a test written for the operation covers. */
struct WireOperation {
    const char* name;
    std::string (*call)();
    int command;
    std::string_view payload;
    Rows<Answer> answers;
    Rows<RefusedNull> nulls;
    const char* observedOnFailure;
    const char* logOnFailure;
    /** The call alone; null where more than numbers goes in or comes out. */
    void (*bare)();
};

/** Gathers what a call gave back, as text: "result=0;pMode=[7 0*255];". */
class Observed {
public:
    template <typename Number, std::enable_if_t<std::is_arithmetic_v<Number> || std::is_enum_v<Number>, int> = 0>
    void add(const char* label, Number value) {
        addNumber(label, static_cast<int>(value));
    }

    void add(const char* label, const char* value);

    template <std::size_t count> void add(const char* label, const int (&values)[count]) {
        addNumbers(label, values, count);
    }

    void add(const char* label, const std::list<int>& numbers) {
        const std::vector<int> values(numbers.begin(), numbers.end());
        addNumbers(label, values.data(), values.size());
    }

    template <typename List, typename = typename List::value_type> void add(const char* label, const List& texts) {
        addLabel(label, "[");
        const char* separator = "";
        for (const auto& text : texts) {
            mText.append(separator).append("'").append(text).append("'");
            separator = " ";
        }
        mText += "];";
    }

    const std::string& text() const { return mText; }

private:
    void addLabel(const char* label, const char* opening);
    void addNumber(const char* label, int value);
    void addNumbers(const char* label, const int* values, std::size_t count);

    std::string mText;
};

/** Every operation of the catalogue against the literal bytes it must send. */
class WireTable : public ::testing::TestWithParam<WireOperation> {};

std::string operationName(const ::testing::TestParamInfo<WireOperation>& info);

void PrintTo(const WireOperation& operation, std::ostream* out);

} // namespace kelutv::test
