#include "client/wire/Observed.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <numeric>

namespace kelutv::test {

namespace {

constexpr int kUntouchedInt = 0x5A5A5A5A;
constexpr double kUntouchedDouble = -0.5;
constexpr char kUntouchedChar = 'x';

/** A number as text. */
struct Shown {
    explicit Shown(int value) { std::snprintf(text, sizeof text, "%d", value); }
    explicit Shown(unsigned int value) { std::snprintf(text, sizeof text, "%u", value); }
    explicit Shown(double value) { std::snprintf(text, sizeof text, "%.17g", value); }
    char text[32];
};

} // namespace

IntBuffer::IntBuffer() { std::fill(std::begin(values), std::end(values), kUntouchedInt); }
IntBuffer::IntBuffer(int first) { std::iota(std::begin(values), std::end(values), first); }

DoubleBuffer::DoubleBuffer() { std::fill(std::begin(values), std::end(values), kUntouchedDouble); }
DoubleBuffer::DoubleBuffer(double first) { std::iota(std::begin(values), std::end(values), first); }

ByteBuffer::ByteBuffer(int first) {
    std::iota(std::begin(values), std::end(values), static_cast<unsigned char>(first));
}

CharBuffer::CharBuffer(const char* text) {
    std::fill(std::begin(values), std::end(values), kUntouchedChar);
    values[kBufferSize - 1] = '\0';
    if (text != nullptr) {
        std::strcpy(values, text);
    }
}

void Observed::addValue(const char* label, const char* value) {
    mText.append(label).append("=").append(value).append(";");
}

template <typename Numbers> void Observed::addRuns(const char* label, const Numbers& numbers) {
    mText.append(label).append("=[");
    const char* separator = "";
    for (auto start = std::begin(numbers); start != std::end(numbers); separator = " ") {
        const auto next = std::find_if(start, std::end(numbers), [start](auto value) { return value != *start; });
        const auto count = static_cast<int>(std::distance(start, next));
        mText.append(separator).append(Shown(*start).text);
        if (count > 1) {
            mText.append("*").append(Shown(count).text);
        }
        start = next;
    }
    mText.append("];");
}

void Observed::add(const char* label, int value) { addValue(label, Shown(value).text); }
void Observed::add(const char* label, unsigned int value) { addValue(label, Shown(value).text); }
void Observed::add(const char* label, double value) { addValue(label, Shown(value).text); }
void Observed::add(const char* label, const IntBuffer& buffer) { addRuns(label, buffer.values); }
void Observed::add(const char* label, const DoubleBuffer& buffer) { addRuns(label, buffer.values); }
void Observed::add(const char* label, const std::list<int>& numbers) { addRuns(label, numbers); }

void Observed::add(const char* label, const CharBuffer& buffer) {
    std::string text = buffer.values;
    const bool whole = text.size() == kBufferSize - 1;
    const auto isTouched = [](char character) { return character != kUntouchedChar; };
    if (whole) {
        const std::size_t written = text.find_last_not_of(kUntouchedChar) + 1;
        text.replace(written, std::string::npos,
                     std::string("x*") + Shown(static_cast<int>(text.size() - written)).text);
    } else if (std::any_of(buffer.values + text.size() + 1, std::end(buffer.values) - 1, isTouched)) {
        text += '+';
    }
    addValue(label, text.c_str());
}

void Observed::add(const char* label, const std::list<std::string>& texts) {
    mText.append(label).append("=[");
    const char* separator = "";
    for (const std::string& text : texts) {
        mText.append(separator).append("'").append(text).append("'");
        separator = " ";
    }
    mText.append("];");
}

} // namespace kelutv::test
