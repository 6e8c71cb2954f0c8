#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

namespace kelutv::tool {

// One function a command, each in NAME_command.cpp. The action of a command does the work, prints through the context's
// output, and ends with an exception of Errors.h or with `context.exit`.
void addCallCommand(const Command& program, Context& context);
void addCecCommand(const Command& program, Context& context);
void addCompleteCommand(const Command& program, Context& context);
void addDecodeCommand(const Command& program, Context& context);
void addDescribeCommand(const Command& program, Context& context);
void addEepCommand(const Command& program, Context& context);
void addEncodeCommand(const Command& program, Context& context);
void addGetCommand(const Command& program, Context& context);
void addHelpCommand(const Command& program, Context& context);
void addListCommand(const Command& program, Context& context);
void addMonitorCommand(const Command& program, Context& context);
void addPowerCommand(const Command& program, Context& context);
void addReplCommand(const Command& program, Context& context);
void addSetCommand(const Command& program, Context& context);
void addSimCommand(const Command& program, Context& context);
void addSourcesCommand(const Command& program, Context& context);
void addStatusCommand(const Command& program, Context& context);
void addTraceCommand(const Command& program, Context& context);
void addWaitCommand(const Command& program, Context& context);

} // namespace kelutv::tool
