#pragma once

#include "wire/Rows.h"

#include <string>
#include <vector>

namespace kelutv::simulator {

/** A verb of the control channel and its help. */
struct ControlVerb {
    const char* name;
    /** What follows the name. */
    const char* form;
    const char* meaning;
    const char* example;
};

/** In alphabetical order. */
wire::Rows<ControlVerb> controlVerbs();

/** Null when there is none. */
const ControlVerb* findControlVerb(const std::string& name);

std::vector<std::string> controlVerbNames();

/** Every verb with its form and an example, or one of them; empty when there is none of the name. */
std::string controlHelp(const std::string& name = "");

} // namespace kelutv::simulator
