#pragma once

#include "tools/kelutv/calls/CallFrame.h"
#include "wire/Function.h"

#include <string>

namespace kelutv::tool {

/** Puts what an argument's text means into its storage. @throws UsageError what is wrong and what is allowed */
void readArgument(const wire::Parameter& parameter, const std::string& text, CallFrame::Storage& storage);

} // namespace kelutv::tool
