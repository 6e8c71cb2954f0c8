#pragma once

#include "tools/ParsedJson.h"
#include "tools/Tool.h"

#include "support/ChildProcess.h"
#include "support/RuntimeDir.h"
#include "support/TestFolder.h"
#include "wire/Function.h"
#include "wire/Interface.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::test {

/** Null when the list of a snapshot has no such state. */
const tool::Json* entryOf(const tool::Json& snapshot, const char* list, const std::string& state);

/** The state of an entry without its keys. */
std::string plainName(const tool::Json& entry);

/** The state that an operation which only reads asks for; null without one. */
const wire::StateKey* stateReadBy(const wire::Function& function);

/** A television that tells nothing of what it is asked, and a folder for snapshots of it. */
class Snapshots : public ::testing::Test {
protected:
    void SetUp() override { turnOn(); }

    /** What a television holds that has just been switched on; it is asked once for all tests. */
    const tool::Json& fresh();

    /** A file of some states, with these values. */
    void writeSome(const std::string& name, const std::vector<std::pair<std::string, tool::Json>>& states);

    void turnOn(const std::vector<std::string>& options = {});
    void turnOff();

    std::string file(const std::string& name) const { return mFolder.pathOf(name); }

    /** Runs the tool, which must succeed. */
    static void run(std::vector<std::string> words);
    static void sim(const std::string& line) { run({"sim", line}); }

    void take(const std::string& name) const { run({"--quiet", "snapshot", "-o", file(name)}); }
    ToolRun diff(const std::string& first, const std::string& second, std::vector<std::string> options = {}) const;
    ToolRun restore(const std::string& name, std::vector<std::string> options = {}) const;

    tool::Json read(const std::string& name) const;
    void write(const std::string& name, const std::string& text) const;

    ChildProcess& television() { return *mTelevision; }

private:
    TestFolder mFolder;
    RuntimeDir mRuntimeDir;
    std::unique_ptr<ChildProcess> mTelevision;
};

} // namespace kelutv::test
