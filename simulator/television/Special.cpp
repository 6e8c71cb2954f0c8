#include "simulator/television/Special.h"

#include "simulator/television/Hotel.h"
#include "simulator/television/Production.h"

#include <kelutv/audio_types.h>
#include <kelutv/commands.h>
#include <kelutv/factory_types.h>
#include <kelutv/items.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string>

namespace kelutv::simulator {

namespace {

std::int32_t numberAt(const wire::Request& request, std::size_t index) {
    return std::get<std::int32_t>(request.arguments[index].front());
}

wire::Reply valued(std::int32_t value) { return {0, "", {{value}}}; }

wire::Reply toggleSpeakerMute(Equipment& equipment, const wire::Request&) {
    const wire::StateSlot& mute = *wire::findState("audio.mute");
    const wire::Values speaker{std::int32_t{KELU_TV_AUDIO_CHANNEL_SPEAKER}};
    const bool muted = equipment.state.kept(mute, speaker) != wire::Values{std::int32_t{0}};
    equipment.state.keep(mute, speaker, {std::int32_t{!muted}});
    return {};
}

wire::Reply restoreSound(Equipment& equipment, const wire::Request&) {
    equipment.state.restore("audio");
    return {};
}

wire::Reply restorePicture(Equipment& equipment, const wire::Request&) {
    equipment.state.restore("picture");
    return {};
}

wire::Reply noSuchAddress(std::int32_t address) {
    return wire::replyTo({wire::Result::OutOfRange, "addresses go from 0 to 65535, address " + std::to_string(address) +
                                                        " or the block there goes beyond"});
}

wire::Reply notDone(wire::Result result, const std::exception& error) {
    std::fprintf(stderr, "kelutv-simulator: %s\n", error.what());
    return wire::replyTo({result, error.what()});
}

/** Of a byte, or of a block when the request says how long. */
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
        return notDone(wire::Result::NotStored, error);
    }
    return {};
}

/** A byte, or a block; it is the last argument either way. */
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

wire::Reply cecDevices(Equipment& equipment, const wire::Request&) {
    wire::Reply reply;
    for (const CecDevice& device : equipment.cec.devices()) {
        reply.fields.insert(
            reply.fields.end(),
            {{device.logAddr}, {device.hdmiDevPort}, {device.name}, {device.phyAddr}, {device.listText}});
    }
    return reply;
}

wire::Reply selectCecDevice(Equipment& equipment, const wire::Request& request) {
    const std::int32_t logAddr = numberAt(request, 0);
    return equipment.cec.select(logAddr)
               ? valued(0)
               : wire::replyTo(
                     {wire::Result::UnknownDevice, "no CEC device has the logical address " + std::to_string(logAddr)});
}

wire::Reply playingCecDevice(Equipment& equipment, const wire::Request&) { return valued(equipment.cec.playing()); }

wire::Reply arcSupported(Equipment&, const wire::Request&) { return valued(1); }

wire::Reply arcActive(Equipment& equipment, const wire::Request&) {
    return valued(std::int32_t{equipment.cec.isArcActive()});
}

wire::Reply arcPort(Equipment& equipment, const wire::Request&) { return valued(equipment.cec.arcPort()); }

template <void (Teletext::*change)(bool), bool on>
wire::Reply changeTeletext(Equipment& equipment, const wire::Request&) {
    (equipment.teletext.*change)(on);
    return {};
}

template <PowerState state> wire::Reply enterPowerState(Equipment& equipment, const wire::Request&) {
    equipment.power.enter(state);
    return {};
}

wire::Reply resume(Equipment& equipment, const wire::Request& request) {
    equipment.power.wake(numberAt(request, 0));
    return {};
}

/** What was not flushed is lost, as it is without power. */
wire::Reply reboot(Equipment& equipment, const wire::Request&) {
    equipment.power.enter(PowerState::Rebooting);
    equipment.eep.revert(Memory::FlashEep);
    equipment.power.enter(PowerState::On);
    return {};
}

wire::Reply lastPowerOffMode(Equipment& equipment, const wire::Request&) {
    return valued(equipment.power.lastPowerOffMode());
}

wire::Reply wakeupMode(Equipment& equipment, const wire::Request&) { return valued(equipment.power.wakeupMode()); }

wire::Reply setMacAddress(Equipment& equipment, const wire::Request& request) {
    return setMacAddress(equipment.state, request.arguments.back())
               ? wire::Reply{}
               : wire::replyTo({wire::Result::OutOfRange, "a MAC address has six parts, each from 0 to 255"});
}

wire::Reply burnKey(Equipment& equipment, const wire::Request& request) {
    const std::int32_t kind = numberAt(request, 0);
    return burnKey(equipment.state, kind, request.arguments.back())
               ? wire::Reply{}
               : wire::replyTo({wire::Result::OutOfRange, "there is no kind of key " + std::to_string(kind)});
}

wire::Reply burnOtp(Equipment& equipment, const wire::Request&) { return {0, "", {{burnOtp(equipment.state)}}}; }

wire::Reply restoreFactory(Equipment& equipment, const wire::Request&) {
    restoreFactorySettings(equipment.state);
    return {};
}

wire::Reply restoreColorTemp(Equipment& equipment, const wire::Request&) {
    restoreSetting(equipment.state, "factory.colorTemp");
    return {};
}

wire::Reply restoreAdc(Equipment& equipment, const wire::Request&) {
    restoreSetting(equipment.state, "factory.adcGainOffset");
    return {};
}

wire::Reply resetHotel(Equipment& equipment, const wire::Request&) {
    resetHotel(equipment.state);
    return {};
}

/** Between a file and the hotel settings; the other operations touch nothing that the television has. */
wire::Reply operateFlashEep(Equipment& equipment, const wire::Request& request) {
    const std::int32_t operation = numberAt(request, 0);
    const std::string& path = std::get<std::string>(request.arguments[1].front());
    if (operation < 0 || operation >= KELU_TV_EEFLASH_OPERATE_BUTT) {
        return wire::replyTo({wire::Result::OutOfRange, "there is no operation " + std::to_string(operation)});
    }
    const bool isBackup = operation == KELU_TV_EEFLASH_BAK;
    try {
        if (isBackup) {
            backUpHotel(equipment.state, path);
        } else if (operation == KELU_TV_EEFLASH_ALL) {
            restoreHotel(equipment.state, path);
        }
    } catch (const std::runtime_error& error) {
        return notDone(isBackup ? wire::Result::NotStored : wire::Result::NotRestored, error);
    }
    return {};
}

struct Special {
    std::int32_t command;
    Handler handler;
};

constexpr Special kSpecialCommands[] = {
    {CMD_CEC_MODIFY_MUTE, toggleSpeakerMute},
    {CMD_AUDIO_RESTORESOUNDSETS, restoreSound},
    {CMD_PICTURE_RESTOREPICTURESETS, restorePicture},
    {CMD_SYSTEM_GETEEPBYTE, readEep<Memory::Eep>},
    {CMD_SYSTEM_GETEEPMULTI, readEep<Memory::Eep>},
    {CMD_SYSTEM_SETEEPBYTE, writeEep<Memory::Eep>},
    {CMD_SYSTEM_SETEEPMULTI, writeEep<Memory::Eep>},
    {CMD_SYSTEM_GETFLASHEEPBYTE, readEep<Memory::FlashEep>},
    {CMD_SYSTEM_GETFLASHEEPMULTI, readEep<Memory::FlashEep>},
    {CMD_SYSTEM_SETFLASHEEPBYTE, writeEep<Memory::FlashEep>},
    {CMD_SYSTEM_SETFLASHEEPMULTI, writeEep<Memory::FlashEep>},
    {CMD_SYSTEM_SETFLASHEEPFLUSH, commitEep<Memory::FlashEep>},
    {CMD_CEC_GETDEVICELISTALLINFO, cecDevices},
    {CMD_CEC_ACTIVATE_CEC_DEVICE, selectCecDevice},
    {CMD_CEC_GET_PLAYING_DEVICE_LOGADDR, playingCecDevice},
    {CMD_CEC_GETARCSUPPORTED, arcSupported},
    {CMD_CEC_GETARCCONNECTSTATE, arcActive},
    {CMD_CEC_GETARCPORT, arcPort},
    {CMD_TV_TTX_INIT, changeTeletext<&Teletext::initialise, true>},
    {CMD_TV_TTX_DEINIT, changeTeletext<&Teletext::initialise, false>},
    {CMD_TV_TTX_OPEN, changeTeletext<&Teletext::open, true>},
    {CMD_TV_TTX_CLOSE, changeTeletext<&Teletext::open, false>},
    {CMD_TV_TTX_REGISTCALLBACK, changeTeletext<&Teletext::registerClient, true>},
    {CMD_TV_TTX_UNREGISTCALLBACK, changeTeletext<&Teletext::registerClient, false>},
    {CMD_SYSTEM_SUSPEND, enterPowerState<PowerState::Suspended>},
    {CMD_SYSTEM_SET_ENTER_STR_SUSPEND, enterPowerState<PowerState::SuspendedToMemory>},
    {CMD_SYSTEM_SET_ENTER_NORMAL_SUSPEND, enterPowerState<PowerState::NormallySuspended>},
    {CMD_SYSTEM_SET_ENTER_SHALLOW_SUSPEND, enterPowerState<PowerState::ShallowlySuspended>},
    {CMD_SYSTEM_RESUME, resume},
    {CMD_SYSTEM_SET_STR_RESUME, enterPowerState<PowerState::On>},
    {CMD_SYSTEM_SET_SHALLOW_RESUME, enterPowerState<PowerState::On>},
    {CMD_SYSTEM_GETLASTPOWEROFFMODE, lastPowerOffMode},
    {CMD_SYSTEM_GETWAKEUPMODE, wakeupMode},
    {CMD_FACTORY_SETMACADDRESS, setMacAddress},
    {CMD_FACTORY_SETKEYDATA, burnKey},
    {CMD_FACTORY_SETSTBOTPBURN, burnOtp},
    {CMD_FACTORY_RESETNVM, restoreFactory},
    {CMD_FACTORY_RESTOREFACTORY, restoreFactory},
    {CMD_FACTORY_RESTOREFACTORYSETTING, restoreFactory},
    {CMD_FACTORY_RESTORECOLORTEMP, restoreColorTemp},
    {CMD_FACTORY_OPERATEEROM, operateFlashEep},
};

struct SpecialItem {
    std::int32_t command;
    std::int32_t item;
    Handler handler;
};

constexpr SpecialItem kSpecialItems[] = {
    {CMD_SYSTEM_COMMON_SET_ITEM_VALUE, CMDID_SYSTEM_REBOOT, reboot},
    {CMD_FACOTRY_COMMON_SET_ITEM_VALUE, CMDID_FACTORY_SET_HOTEL_RESTORE, resetHotel},
    {CMD_FACOTRY_COMMON_SET_ITEM_VALUE, CMDID_FACTORY_SET_RESTORE_ADC, restoreAdc},
};

Handler itemHandler(const wire::Request& request) {
    const auto* const found =
        std::find_if(std::begin(kSpecialItems), std::end(kSpecialItems), [&request](const SpecialItem& special) {
            return special.command == request.command->value && special.item == numberAt(request, 0);
        });
    return found != std::end(kSpecialItems) ? found->handler : nullptr;
}

} // namespace

Handler specialHandler(const wire::Request& request) {
    const std::int32_t command = request.command->value;
    const auto* const found = std::find_if(std::begin(kSpecialCommands), std::end(kSpecialCommands),
                                           [command](const Special& special) { return special.command == command; });
    return found != std::end(kSpecialCommands) ? found->handler : itemHandler(request);
}

} // namespace kelutv::simulator
