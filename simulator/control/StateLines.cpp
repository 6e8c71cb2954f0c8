#include "simulator/control/StateLines.h"

#include "simulator/control/ControlMessage.h"
#include "simulator/control/ControlValues.h"
#include "simulator/television/StateRequests.h"
#include "simulator/text/Tokenizer.h"
#include "wire/StateForm.h"

#include <set>

namespace kelutv::simulator {

namespace {

using Lines = std::vector<std::string>;

/** The indexes under which something is known to be kept. */
std::set<wire::Values> knownIndexes(const Equipment& equipment, const wire::StateKey& key) {
    std::set<wire::Values> indexes;
    if (key.indexes.size() == 0) {
        return {wire::Values{}};
    }
    for (const auto& entry : equipment.state.all()) {
        if (entry.first.first == &key) {
            indexes.insert(entry.first.second);
        }
    }
    if (const auto shown = equipment.sources.mainWindowIndexes(key)) {
        indexes.insert(*shown);
    }
    const StateSettings& settings = equipment.configuration.settings(key);
    if (key.indexes.size() == 1) {
        for (const auto& initial : settings.initialByIndex) {
            indexes.insert({initial.first});
        }
        for (const std::int32_t source :
             settings.indexIsSource ? equipment.sources.ids() : std::vector<std::int32_t>()) {
            if (equipment.sources.derived(key, {source})) {
                indexes.insert({source});
            }
        }
    }
    return indexes;
}

/** Whether setting the state gives it back the value that it has. */
bool isSetAgain(const Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes) {
    return isPlainState(equipment, key, indexes) || equipment.state.all().count({&key, indexes}) != 0;
}

} // namespace

std::string lineOf(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes) {
    const Reading reading = readByRequest(equipment, key, indexes);
    if (reading.refusal) {
        throw BadLine(reading.refusal->text);
    }
    return textOf(key, indexes, reading.values);
}

Lines linesOf(Equipment& equipment, const wire::StateKey& key) {
    Lines lines;
    for (const wire::Values& indexes : knownIndexes(equipment, key)) {
        const std::string remark = isSetAgain(equipment, key, indexes) ? "" : "# ";
        lines.push_back(remark + lineOf(equipment, key, indexes));
    }
    const StateSettings& settings = equipment.configuration.settings(key);
    const wire::Values anyIndexes(key.indexes.size(), std::int32_t{0});
    if (!anyIndexes.empty() && !settings.indexIsSource && isPlainState(equipment, key, anyIndexes)) {
        const wire::Values initial = wire::completed(wire::formOf(key), settings.initial);
        lines.push_back("# " + std::string(key.name) + " of any other key: " + textOf(initial));
    }
    return lines;
}

Lines resetLinesOf(const Equipment& equipment, const wire::StateKey& key) {
    if (key.indexes.size() == 0 || !isKeptState(equipment, key)) {
        return {};
    }
    const std::string everything = std::string("reset ") + key.name;
    std::string line = everything;
    for (const wire::Values& indexes : knownIndexes(equipment, key)) {
        line += (line == everything ? " except [" : " [") + textOf(indexes, ",") + ']';
    }
    return {line.size() <= kLongestLine ? line : everything};
}

} // namespace kelutv::simulator
