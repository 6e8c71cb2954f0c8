#include "tools/snapshot/Snapshots.h"

#include "simulator/Simulator.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <iterator>

namespace kelutv::test {

using tool::Json;

const Json* entryOf(const Json& snapshot, const char* list, const std::string& state) {
    const Json::Entries& entries = snapshot.at(list).entries();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&state](const Json& entry) { return entry.at("state") == Json(state); });
    return found == entries.end() ? nullptr : &*found;
}

std::string plainName(const Json& entry) {
    const std::string name = entry.at("state").asText();
    return name.substr(0, name.find('['));
}

const wire::StateKey* stateReadBy(const wire::Function& function) {
    if (function.effect.kind != wire::EffectKind::Read || function.requests.size() != 1) {
        return nullptr;
    }
    const wire::SentRequest& request = function.requests[0];
    const wire::Command* const command = wire::findCommand(request.commandValue);
    if (command->hasItems && request.item == nullptr) {
        return nullptr;
    }
    const wire::Operation* const operation = wire::operationOf(*command, {{wire::Value(request.itemValue)}});
    return operation->rule.access == wire::StateRule::Access::Get ? operation->rule.key : nullptr;
}

const Json& Snapshots::fresh() {
    static const Json snapshot = [this] {
        take("fresh.json");
        return read("fresh.json");
    }();
    return snapshot;
}

void Snapshots::writeSome(const std::string& name, const std::vector<std::pair<std::string, Json>>& states) {
    Json some{{"format", "kelutv snapshot 1"}, {"taken", ""}, {"missing", Json::array()}, {"states", Json::array()}};
    for (const auto& [state, values] : states) {
        Json entry = *entryOf(fresh(), "states", state);
        entry["values"] = values;
        some["states"].add(entry);
    }
    some["readable"] = states.size();
    some["held"] = states.size();
    write(name, some.dump());
}

void Snapshots::turnOn(const std::vector<std::string>& options) {
    mTelevision = startSimulator(options);
    ASSERT_TRUE(mTelevision->output().waitFor("ready (TVBaseService)\n")) << mTelevision->error().text();
}

void Snapshots::turnOff() {
    mTelevision->kill(SIGTERM);
    ASSERT_EQ(mTelevision->exitCode(), 0);
}

void Snapshots::run(std::vector<std::string> words) {
    const ToolRun run = runTool(std::move(words));
    EXPECT_EQ(run.exit, 0) << run.output << run.error;
}

ToolRun Snapshots::diff(const std::string& first, const std::string& second, std::vector<std::string> options) const {
    options.insert(options.begin(), {"snapshot", "diff", file(first), file(second)});
    return runTool(options);
}

ToolRun Snapshots::restore(const std::string& name, std::vector<std::string> options) const {
    options.insert(options.begin(), {"snapshot", "restore", file(name)});
    return runTool(options);
}

Json Snapshots::read(const std::string& name) const {
    std::ifstream text(file(name));
    return parsedJson({std::istreambuf_iterator<char>(text), {}});
}

void Snapshots::write(const std::string& name, const std::string& text) const { std::ofstream(file(name)) << text; }

} // namespace kelutv::test
