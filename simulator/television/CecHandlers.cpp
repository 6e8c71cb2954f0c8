#include "simulator/television/CommandHandler.h"

#include <kelutv/commands.h>

#include <string>

namespace kelutv::simulator {

namespace {

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
               ? numberReply(0)
               : wire::replyTo(
                     {wire::Result::UnknownDevice, "no CEC device has the logical address " + std::to_string(logAddr)});
}

wire::Reply playingCecDevice(Equipment& equipment, const wire::Request&) {
    return numberReply(equipment.cec.playing());
}

wire::Reply arcSupported(Equipment&, const wire::Request&) { return numberReply(1); }

wire::Reply arcActive(Equipment& equipment, const wire::Request&) {
    return numberReply(std::int32_t{equipment.cec.isArcActive()});
}

wire::Reply arcPort(Equipment& equipment, const wire::Request&) { return numberReply(equipment.cec.arcPort()); }

constexpr CommandHandler kCecHandlers[] = {
    {CMD_CEC_GETDEVICELISTALLINFO, cecDevices},
    {CMD_CEC_ACTIVATE_CEC_DEVICE, selectCecDevice},
    {CMD_CEC_GET_PLAYING_DEVICE_LOGADDR, playingCecDevice},
    {CMD_CEC_GETARCSUPPORTED, arcSupported},
    {CMD_CEC_GETARCCONNECTSTATE, arcActive},
    {CMD_CEC_GETARCPORT, arcPort},
};

} // namespace

CommandHandlers cecHandlers() { return kCecHandlers; }

} // namespace kelutv::simulator
