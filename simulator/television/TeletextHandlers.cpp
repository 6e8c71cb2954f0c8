#include "simulator/television/CommandHandler.h"

#include <kelutv/commands.h>

namespace kelutv::simulator {

namespace {

template <void (Teletext::*change)(bool), bool on>
wire::Reply changeTeletext(Equipment& equipment, const wire::Request&) {
    (equipment.teletext.*change)(on);
    return {};
}

constexpr CommandHandler kTeletextHandlers[] = {
    {CMD_TV_TTX_INIT, changeTeletext<&Teletext::initialise, true>},
    {CMD_TV_TTX_DEINIT, changeTeletext<&Teletext::initialise, false>},
    {CMD_TV_TTX_OPEN, changeTeletext<&Teletext::open, true>},
    {CMD_TV_TTX_CLOSE, changeTeletext<&Teletext::open, false>},
    {CMD_TV_TTX_REGISTCALLBACK, changeTeletext<&Teletext::registerClient, true>},
    {CMD_TV_TTX_UNREGISTCALLBACK, changeTeletext<&Teletext::registerClient, false>},
};

} // namespace

CommandHandlers teletextHandlers() { return kTeletextHandlers; }

} // namespace kelutv::simulator
