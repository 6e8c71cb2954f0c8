#pragma once

#include "Command.h"

namespace kelutv::tool {

// One function a command, each in NAME_command.cpp.
void addCallCommand(CLI::App& app, Context& context);
void addCompleteCommand(CLI::App& app, Context& context);
void addDecodeCommand(CLI::App& app, Context& context);
void addDescribeCommand(CLI::App& app, Context& context);
void addEepCommand(CLI::App& app, Context& context);
void addEncodeCommand(CLI::App& app, Context& context);
void addGetCommand(CLI::App& app, Context& context);
void addHelpCommand(CLI::App& app, Context& context);
void addListCommand(CLI::App& app, Context& context);
void addMonitorCommand(CLI::App& app, Context& context);
void addReplCommand(CLI::App& app, Context& context);
void addSetCommand(CLI::App& app, Context& context);
void addSimCommand(CLI::App& app, Context& context);
void addStatusCommand(CLI::App& app, Context& context);
void addTraceCommand(CLI::App& app, Context& context);

} // namespace kelutv::tool
