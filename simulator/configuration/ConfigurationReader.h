#pragma once

#include "simulator/configuration/Configuration.h"

namespace kelutv::simulator {

/**
 * Reads a whole configuration: states, sources, signals and CEC devices, checked against the catalogue.
 * @throws ConfigurationError for what is wrong, with the place and what is allowed
 */
Configuration readConfiguration(const JsonNode& root);

/** The number that the name of a source stands for. @throws ConfigurationError when there is no such enumerator */
std::int32_t readSourceName(const JsonNode& place, const std::string& name);

} // namespace kelutv::simulator
