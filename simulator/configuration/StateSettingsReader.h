#pragma once

#include "simulator/configuration/Configuration.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** The names of the rows of a table. */
template <typename Row> std::vector<std::string> namesOf(const wire::Rows<Row>& rows) {
    std::vector<std::string> names;
    std::transform(rows.begin(), rows.end(), std::back_inserter(names), [](const Row& row) { return row.name; });
    return names;
}

/** The state of this name, as in `audio.volume`. @throws ConfigurationError when there is none */
const wire::StateKey& readStateName(const JsonNode& place, const std::string& name);

/** One value or a list of them, of the kind that the state holds; the name of an enumerator stands for its number. */
wire::Values readValues(const JsonNode& node, const wire::StateKey& key);

/** The settings of one state: `initial`, `range`, `event`, `source`. @throws ConfigurationError */
StateSettings readStateSettings(const JsonNode& node, const wire::StateKey& key);

} // namespace kelutv::simulator
