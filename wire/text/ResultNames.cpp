#include "wire/text/ResultNames.h"

#include "wire/codec/Refusal.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <iterator>

namespace kelutv::wire {

namespace {

struct NamedNumber {
    std::int32_t number;
    const char* name;
};

constexpr NamedNumber refusal(Result result, const char* name) { return {static_cast<std::int32_t>(result), name}; }

constexpr NamedNumber kRefusals[] = {
    refusal(Result::WrongToken, "wrong interface token"),  refusal(Result::UnknownCommand, "no such command"),
    refusal(Result::MissingData, "request too short"),     refusal(Result::UnterminatedText, "text without an end"),
    refusal(Result::TooMuchData, "request too long"),      refusal(Result::UnknownItem, "no such item"),
    refusal(Result::OutOfRange, "value out of range"),     refusal(Result::UnknownSource, "no such source"),
    refusal(Result::UnknownDevice, "no such CEC device"),  refusal(Result::NotStored, "not stored"),
    refusal(Result::NotRestored, "not restored"),          refusal(Result::NotProvided, "not provided"),
    refusal(Result::Failed, "failure inside the service"), refusal(Result::NotRecorded, "not recorded"),
};

// A platform need not name those that the library does not use.
constexpr NamedNumber kStatuses[] = {
    {-EPERM, "PERMISSION_DENIED"},
    {-ENOENT, "NAME_NOT_FOUND"},
    {-EWOULDBLOCK, "WOULD_BLOCK"},
    {-ENOMEM, "NO_MEMORY"},
    {-EEXIST, "ALREADY_EXISTS"},
    {-ENODEV, "NO_INIT"},
    {-EINVAL, "BAD_VALUE"},
    {-EPIPE, "DEAD_OBJECT"},
    {-ENOSYS, "INVALID_OPERATION"},
    {-ENODATA, "NOT_ENOUGH_DATA"},
    {-EBADMSG, "UNKNOWN_TRANSACTION"},
    {-EOVERFLOW, "BAD_INDEX"},
    {-ETIMEDOUT, "TIMED_OUT"},
    {INT32_MIN, "UNKNOWN_ERROR"},
    {INT32_MIN + 1, "BAD_TYPE"},
    {INT32_MIN + 2, "FAILED_TRANSACTION"},
    {INT32_MIN + 7, "FDS_NOT_ALLOWED"},
    {INT32_MIN + 8, "UNEXPECTED_NULL"},
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

std::string nameOfStatus(std::int32_t status) { return nameIn(kStatuses, status); }

std::string resultText(std::int32_t result) { return withName(result, nameOfResult(result)); }

std::string statusText(std::int32_t status) { return withName(status, nameOfStatus(status)); }

} // namespace kelutv::wire
