#include "wire/text/ResultNames.h"

#include "wire/codec/Refusal.h"

#include <algorithm>
#include <iterator>

namespace kelutv::wire {

namespace {

struct NamedNumber {
    std::int32_t number;
    const char* name;
};

constexpr NamedNumber refusal(Result result, const char* name) { return {static_cast<std::int32_t>(result), name}; }

constexpr NamedNumber kRefusals[] = {
    refusal(Result::WrongToken, "wrong interface token"), refusal(Result::UnknownCommand, "no such command"),
    refusal(Result::MissingData, "request too short"),    refusal(Result::UnterminatedText, "text without an end"),
    refusal(Result::TooMuchData, "request too long"),     refusal(Result::UnknownItem, "no such item"),
    refusal(Result::OutOfRange, "value out of range"),    refusal(Result::UnknownSource, "no such source"),
    refusal(Result::UnknownDevice, "no such CEC device"), refusal(Result::NotStored, "not stored"),
    refusal(Result::NotRestored, "not restored"),
};

constexpr NamedNumber kStatuses[] = {
    {android::PERMISSION_DENIED, "PERMISSION_DENIED"},
    {android::NAME_NOT_FOUND, "NAME_NOT_FOUND"},
    {android::WOULD_BLOCK, "WOULD_BLOCK"},
    {android::NO_MEMORY, "NO_MEMORY"},
    {android::ALREADY_EXISTS, "ALREADY_EXISTS"},
    {android::NO_INIT, "NO_INIT"},
    {android::BAD_VALUE, "BAD_VALUE"},
    {android::DEAD_OBJECT, "DEAD_OBJECT"},
    {android::INVALID_OPERATION, "INVALID_OPERATION"},
    {android::NOT_ENOUGH_DATA, "NOT_ENOUGH_DATA"},
    {android::UNKNOWN_TRANSACTION, "UNKNOWN_TRANSACTION"},
    {android::BAD_INDEX, "BAD_INDEX"},
    {android::TIMED_OUT, "TIMED_OUT"},
    {android::UNKNOWN_ERROR, "UNKNOWN_ERROR"},
    {android::BAD_TYPE, "BAD_TYPE"},
    {android::FAILED_TRANSACTION, "FAILED_TRANSACTION"},
    {android::FDS_NOT_ALLOWED, "FDS_NOT_ALLOWED"},
    {android::UNEXPECTED_NULL, "UNEXPECTED_NULL"},
};

template <std::size_t Count> std::string nameIn(const NamedNumber (&table)[Count], std::int32_t number) {
    const auto* const found = std::find_if(std::begin(table), std::end(table),
                                           [number](const NamedNumber& row) { return row.number == number; });
    return found != std::end(table) ? found->name : "";
}

std::string withName(std::int32_t number, const std::string& name) {
    return std::to_string(number) + (name.empty() ? "" : ", " + name);
}

} // namespace

std::string nameOfResult(std::int32_t result) {
    constexpr std::int32_t kAnyFailure = -1;
    const std::string refusal = nameIn(kRefusals, result);
    return refusal.empty() && result != kAnyFailure ? nameOfStatus(result) : refusal;
}

std::string nameOfStatus(android::status_t status) { return nameIn(kStatuses, status); }

std::string resultText(std::int32_t result) { return withName(result, nameOfResult(result)); }

std::string statusText(android::status_t status) { return withName(status, nameOfStatus(status)); }

} // namespace kelutv::wire
