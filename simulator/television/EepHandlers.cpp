#include "simulator/television/CommandHandler.h"

#include <kelutv/commands.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace kelutv::simulator {

namespace {

wire::Reply noSuchAddress(std::int32_t address) {
    return wire::replyTo({wire::Result::OutOfRange, "addresses go from 0 to 65535, address " + std::to_string(address) +
                                                        " or the end of its block is outside"});
}

/** Reads a byte, or a block when the request has a length. */
template <Memory memory> wire::Reply readEep(Equipment& equipment, const wire::Request& request) {
    const std::int32_t address = numberAt(request, 0);
    const std::int32_t length = request.arguments.size() > 1 ? std::max(numberAt(request, 1), 0) : 1;
    if (!EepStore::covers(address, length)) {
        return noSuchAddress(address);
    }
    wire::Reply reply{0, "", {{}}};
    for (const char byte : equipment.eep.read(memory, address, static_cast<std::size_t>(length))) {
        reply.fields.front().emplace_back(std::int32_t{static_cast<unsigned char>(byte)});
    }
    return reply;
}

/** What is written to the flash EEP waits for the flush; the EEP keeps it at once. */
template <Memory memory> wire::Reply commitEep(Equipment& equipment, const wire::Request&) {
    try {
        equipment.eep.commit(memory);
    } catch (const std::runtime_error& error) {
        return failureReply(wire::Result::NotStored, error);
    }
    return {};
}

/** Writes a byte or a block, which is the last argument either way. */
template <Memory memory> wire::Reply writeEep(Equipment& equipment, const wire::Request& request) {
    const std::int32_t address = numberAt(request, 0);
    const wire::Values& values = request.arguments.back();
    if (!EepStore::covers(address, static_cast<std::int64_t>(values.size()))) {
        return noSuchAddress(address);
    }
    std::string bytes;
    for (const wire::Value& value : values) {
        const auto number = std::get<std::int32_t>(value);
        if (number < 0 || number > 0xFF) {
            return wire::replyTo(
                {wire::Result::OutOfRange, "a byte goes from 0 to 255, not " + std::to_string(number)});
        }
        bytes += static_cast<char>(number);
    }
    equipment.eep.write(memory, address, bytes);
    if (memory == Memory::FlashEep) {
        return {};
    }
    const wire::Reply reply = commitEep<memory>(equipment, request);
    if (reply.result != 0) {
        equipment.eep.revert(memory);
    }
    return reply;
}

constexpr CommandHandler kEepHandlers[] = {
    {CMD_SYSTEM_GETEEPBYTE, readEep<Memory::Eep>},
    {CMD_SYSTEM_GETEEPMULTI, readEep<Memory::Eep>},
    {CMD_SYSTEM_SETEEPBYTE, writeEep<Memory::Eep>},
    {CMD_SYSTEM_SETEEPMULTI, writeEep<Memory::Eep>},
    {CMD_SYSTEM_GETFLASHEEPBYTE, readEep<Memory::FlashEep>},
    {CMD_SYSTEM_GETFLASHEEPMULTI, readEep<Memory::FlashEep>},
    {CMD_SYSTEM_SETFLASHEEPBYTE, writeEep<Memory::FlashEep>},
    {CMD_SYSTEM_SETFLASHEEPMULTI, writeEep<Memory::FlashEep>},
    {CMD_SYSTEM_SETFLASHEEPFLUSH, commitEep<Memory::FlashEep>},
};

} // namespace

CommandHandlers eepHandlers() { return kEepHandlers; }

} // namespace kelutv::simulator
