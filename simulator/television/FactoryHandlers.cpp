#include "simulator/television/CommandHandler.h"
#include "simulator/television/Factory.h"
#include "simulator/television/Hotel.h"
#include "simulator/television/StateAccess.h"

#include <kelutv/commands.h>
#include <kelutv/factory_types.h>
#include <kelutv/items.h>

#include <stdexcept>
#include <string>

namespace kelutv::simulator {

namespace {

wire::Reply setMacAddress(Equipment& equipment, const wire::Request& request) {
    return setMacAddress(equipment.state, request.arguments.back())
               ? wire::Reply{}
               : wire::replyTo({wire::Result::OutOfRange, "a MAC address has six parts, each from 0 to 255"});
}

wire::Reply burnKey(Equipment& equipment, const wire::Request& request) {
    const std::int32_t kind = numberAt(request, 0);
    const wire::StateKey& keyData = *wire::findState("factory.keyData");
    if (const auto refusal = objectionToSize(equipment.state, keyData, {kind}, request.arguments.back())) {
        return wire::replyTo(*refusal);
    }
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

/** Copies between a file and the hotel settings; the other operations do nothing. */
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
        return failureReply(isBackup ? wire::Result::NotStored : wire::Result::NotRestored, error);
    }
    return {};
}

constexpr CommandHandler kFactoryHandlers[] = {
    {CMD_FACTORY_SETMACADDRESS, setMacAddress},
    {CMD_FACTORY_SETKEYDATA, burnKey},
    {CMD_FACTORY_SETSTBOTPBURN, burnOtp},
    {CMD_FACTORY_RESETNVM, restoreFactory},
    {CMD_FACTORY_RESTOREFACTORY, restoreFactory},
    {CMD_FACTORY_RESTOREFACTORYSETTING, restoreFactory},
    {CMD_FACTORY_RESTORECOLORTEMP, restoreColorTemp},
    {CMD_FACTORY_OPERATEEROM, operateFlashEep},
    {CMD_FACOTRY_COMMON_SET_ITEM_VALUE, resetHotel, CMDID_FACTORY_SET_HOTEL_RESTORE},
    {CMD_FACOTRY_COMMON_SET_ITEM_VALUE, restoreAdc, CMDID_FACTORY_SET_RESTORE_ADC},
};

} // namespace

CommandHandlers factoryHandlers() { return kFactoryHandlers; }

} // namespace kelutv::simulator
