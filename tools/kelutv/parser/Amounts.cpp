#include "tools/kelutv/parser/Amounts.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/text/Numbers.h"
#include "wire/text/Shown.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace kelutv::tool {

namespace {

constexpr char kVariable[] = "KELUTV_TIMEOUT";
constexpr std::size_t kMost = 1'000'000'000;

[[noreturn]] void refuse(const std::string& option, const std::string& allowed, const std::string& text) {
    throw UsageError(option + " takes " + allowed + ", not '" + wire::shown(text) + '\'');
}

} // namespace

Seconds secondsOf(const std::string& option, const std::string& text, Seconds least, Seconds most) {
    double seconds = 0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, seconds);
    // What is not a number is in no range.
    if (error != std::errc() || last != end || !(seconds >= least.count() && seconds <= most.count())) {
        refuse(option, "a time from " + secondsText(least) + " to " + secondsText(most) + " seconds", text);
    }
    return Seconds(seconds);
}

std::string secondsText(Seconds time) {
    char text[32];
    std::snprintf(text, sizeof(text), "%.10g", time.count());
    return text;
}

std::optional<Seconds> timeOfEnvironment() {
    const char* const text = std::getenv(kVariable);
    return text == nullptr || *text == '\0' ? std::nullopt : std::optional(secondsOf(kVariable, text));
}

void putIntoEnvironment(Seconds time) { ::setenv(kVariable, secondsText(time).c_str(), 1); }

std::size_t countOf(const std::string& option, const std::string& text) {
    const auto count = wire::wholeNumber<std::size_t>(text);
    if (!count || *count < 1 || *count > kMost) {
        refuse(option, "a whole number from 1 to 1000000000", text);
    }
    return *count;
}

} // namespace kelutv::tool
