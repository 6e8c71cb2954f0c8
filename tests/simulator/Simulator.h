#pragma once

#include "support/ChildProcess.h"
#include "support/RuntimeDir.h"
#include "support/Wire.h"

#include <binder/IBinder.h>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::test {

/** A simulated television in a process of its own, tracing; it is registered once this is constructed. */
class Simulator {
public:
    explicit Simulator(std::vector<std::string> options = {});

    /** The trace lines since the last take; those of a call are there when the call returns. */
    std::vector<std::string> takeTrace();

    ChildProcess& process() { return mProcess; }

private:
    ChildProcess mProcess;
};

/** Starts a program of the simulator's that is expected to end by itself. */
std::unique_ptr<ChildProcess> startSimulator(std::vector<std::string> arguments);

/** The same with its standard output on this descriptor. */
std::unique_ptr<ChildProcess> startSimulator(std::vector<std::string> arguments, int output);

/**
 * A runtime directory and a simulator in it, for all tests of the program. What the simulator writes to a path that is
 * not absolute goes away with the directory.
 */
class SimulatorEnvironment : public ::testing::Environment {
public:
    /** Makes the environment part of the test program of a source; call it from the initialiser of a global. */
    static SimulatorEnvironment& install(const char* source = __builtin_FILE());

    void SetUp() override;
    void TearDown() override;

    Simulator& simulator() { return *mSimulator; }

    /** Sends a request past the client library and gives the whole reply. */
    static Bytes transact(const Bytes& request);

    /** The same to a service that was looked up before. */
    static Bytes transact(const android::sp<android::IBinder>& service, const Bytes& request);

private:
    std::optional<RuntimeDir> mRuntimeDir;
    std::optional<Simulator> mSimulator;
};

} // namespace kelutv::test
