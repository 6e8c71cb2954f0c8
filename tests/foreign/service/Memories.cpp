#include "foreign/service/Memories.h"

#include <kelutv/commands.h>

#include <algorithm>

namespace foreign {

namespace wire = kelutv::wire;

namespace {

wire::Reply refusal() { return wire::replyTo({wire::Result::OutOfRange, "the memory ends at 0xFFFF"}); }

std::int32_t numberAt(const wire::Request& request, std::size_t argument) {
    return std::get<std::int32_t>(request.arguments.at(argument).front());
}

} // namespace

std::optional<wire::Reply> Memories::answer(const wire::Request& request) {
    if (request.refusal) {
        return std::nullopt;
    }
    switch (*request.number) {
    case CMD_SYSTEM_GETEEPBYTE:
    case CMD_SYSTEM_GETEEPMULTI:
        return read(mEep, request);
    case CMD_SYSTEM_GETFLASHEEPBYTE:
    case CMD_SYSTEM_GETFLASHEEPMULTI:
        return read(mFlashEep, request);
    case CMD_SYSTEM_SETEEPBYTE:
    case CMD_SYSTEM_SETEEPMULTI:
        return write(mEep, request);
    case CMD_SYSTEM_SETFLASHEEPBYTE:
    case CMD_SYSTEM_SETFLASHEEPMULTI:
        return write(mFlashEep, request);
    default:
        return std::nullopt;
    }
}

/** A byte, or a block when the request has a length. */
wire::Reply Memories::read(const Memory& memory, const wire::Request& request) {
    const std::int64_t address = numberAt(request, 0);
    const std::int64_t length = request.arguments.size() > 1 ? numberAt(request, 1) : 1;
    if (address < 0 || length < 0 || address + length > kSize) {
        return refusal();
    }
    const auto* const first = memory.begin() + address;
    return {0, "", {wire::Values(first, first + length)}};
}

/** A byte or a block, which is the last argument either way. */
wire::Reply Memories::write(Memory& memory, const wire::Request& request) {
    const std::int64_t address = numberAt(request, 0);
    const wire::Values& values = request.arguments.back();
    if (address < 0 || address + static_cast<std::int64_t>(values.size()) > kSize) {
        return refusal();
    }
    std::transform(values.begin(), values.end(), memory.begin() + address,
                   [](const wire::Value& value) { return std::get<std::int32_t>(value); });
    return {};
}

} // namespace foreign
