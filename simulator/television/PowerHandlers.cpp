#include "simulator/television/CommandHandler.h"

#include <kelutv/commands.h>
#include <kelutv/items.h>

namespace kelutv::simulator {

namespace {

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
    return numberReply(equipment.power.lastPowerOffMode());
}

wire::Reply wakeupMode(Equipment& equipment, const wire::Request&) { return numberReply(equipment.power.wakeupMode()); }

constexpr CommandHandler kPowerHandlers[] = {
    {CMD_SYSTEM_SUSPEND, enterPowerState<PowerState::Suspended>},
    {CMD_SYSTEM_SET_ENTER_STR_SUSPEND, enterPowerState<PowerState::SuspendedToMemory>},
    {CMD_SYSTEM_SET_ENTER_NORMAL_SUSPEND, enterPowerState<PowerState::NormallySuspended>},
    {CMD_SYSTEM_SET_ENTER_SHALLOW_SUSPEND, enterPowerState<PowerState::ShallowlySuspended>},
    {CMD_SYSTEM_RESUME, resume},
    {CMD_SYSTEM_SET_STR_RESUME, enterPowerState<PowerState::On>},
    {CMD_SYSTEM_SET_SHALLOW_RESUME, enterPowerState<PowerState::On>},
    {CMD_SYSTEM_GETLASTPOWEROFFMODE, lastPowerOffMode},
    {CMD_SYSTEM_GETWAKEUPMODE, wakeupMode},
    {CMD_SYSTEM_COMMON_SET_ITEM_VALUE, reboot, CMDID_SYSTEM_REBOOT},
};

} // namespace

CommandHandlers powerHandlers() { return kPowerHandlers; }

} // namespace kelutv::simulator
