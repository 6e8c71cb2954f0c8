#pragma once

namespace simulator {

/** The text of defaults.json. */
const char* defaultConfiguration();

} // namespace simulator
