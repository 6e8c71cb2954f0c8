#pragma once

namespace kelutv::simulator {

/** The text of defaults.json. */
const char* defaultConfiguration();

} // namespace kelutv::simulator
