// The commands with a handler of their own, against the interface.

#include "simulator/television/HandlerTable.h"

#include <kelutv/commands.h>
#include <kelutv/items.h>

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace kelutv::simulator {

namespace {

using Access = wire::StateRule::Access;

wire::Request requestOf(std::int32_t command, std::int32_t firstArgument) {
    wire::Request request;
    request.command = wire::findCommand(command);
    request.arguments.assign(request.command->operation.request.size(), {std::int32_t{0}});
    if (!request.arguments.empty()) {
        request.arguments.front() = {firstArgument};
    }
    return request;
}

std::int32_t commandOn(const char* state, Access access) {
    const wire::Command* const command = handledCommand(*wire::findState(state), access);
    return command != nullptr ? command->value : 0;
}

TEST(HandlerTable, EveryRowNamesACommandAndPerhapsAnItemOfTheInterface) {
    for (const CommandHandler& row : allHandlers()) {
        const wire::Command* const command = wire::findCommand(row.command);
        ASSERT_NE(command, nullptr) << std::hex << row.command;
        EXPECT_EQ(command->hasItems, row.item.has_value()) << command->name;
        if (row.item) {
            EXPECT_NE(wire::operationOf(*command, {{*row.item}}), nullptr) << command->name << ' ' << *row.item;
        }
    }
}

TEST(HandlerTable, NoTwoRowsHandleTheSameRequests) {
    std::set<std::pair<std::int32_t, std::optional<std::int32_t>>> seen;
    for (const CommandHandler& row : allHandlers()) {
        EXPECT_TRUE(seen.insert({row.command, row.item}).second) << std::hex << row.command;
    }
}

// What sets and reads a state by items is looked up among the commands only.
TEST(HandlerTable, NoItemWithAHandlerSetsOrReadsAState) {
    for (const CommandHandler& row : allHandlers()) {
        if (row.item) {
            const wire::Operation* const operation = wire::operationOf(*wire::findCommand(row.command), {{*row.item}});
            EXPECT_EQ(operation->rule.access, Access::None) << *row.item;
        }
    }
}

TEST(HandlerTable, ACommandIsHandledWhateverItsArguments) {
    for (const std::int32_t argument : {0, 5, -1}) {
        EXPECT_NE(handlerOf(requestOf(CMD_CEC_ACTIVATE_CEC_DEVICE, argument)), nullptr);
        EXPECT_EQ(handlerOf(requestOf(CMD_AUDIO_GETVOLUME, argument)), nullptr);
    }
}

TEST(HandlerTable, AnItemIsHandledApartFromTheOthersOfItsCommand) {
    EXPECT_NE(handlerOf(requestOf(CMD_SYSTEM_COMMON_SET_ITEM_VALUE, CMDID_SYSTEM_REBOOT)), nullptr);
    EXPECT_EQ(handlerOf(requestOf(CMD_SYSTEM_COMMON_SET_ITEM_VALUE, CMDID_SYSTEM_REBOOT + 1)), nullptr);
    EXPECT_NE(handlerOf(requestOf(CMD_FACOTRY_COMMON_SET_ITEM_VALUE, CMDID_FACTORY_SET_HOTEL_RESTORE)),
              handlerOf(requestOf(CMD_FACOTRY_COMMON_SET_ITEM_VALUE, CMDID_FACTORY_SET_RESTORE_ADC)));
}

TEST(HandlerTable, TheStatesOfACommandWithAHandlerAreKnownFromIt) {
    EXPECT_EQ(commandOn("factory.keyData", Access::Set), CMD_FACTORY_SETKEYDATA);
    EXPECT_EQ(commandOn("factory.keyData", Access::Get), 0);
    EXPECT_EQ(commandOn("systemsetting.eep", Access::Set), CMD_SYSTEM_SETEEPBYTE);
    EXPECT_EQ(commandOn("systemsetting.eep", Access::Get), CMD_SYSTEM_GETEEPBYTE);
    EXPECT_EQ(commandOn("systemsetting.wakeupMode", Access::Set), 0);
    EXPECT_EQ(commandOn("systemsetting.wakeupMode", Access::Get), CMD_SYSTEM_GETWAKEUPMODE);
    EXPECT_EQ(commandOn("audio.volume", Access::Set), 0);
    EXPECT_EQ(commandOn("audio.volume", Access::Get), 0);
}

} // namespace

} // namespace kelutv::simulator
