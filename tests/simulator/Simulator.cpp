#include "simulator/Simulator.h"

#include "support/JoinedTests.h"
#include "support/WorkingFolder.h"
#include "tools/process/Redirection.h"

#include <binder/IServiceManager.h>
#include <binder/Parcel.h>

#include <unistd.h>

#include <csignal>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace kelutv::test {

namespace {

constexpr char kReadyLine[] = "kelutv-simulator: ready (TVBaseService)\n";

ChildProcess::Options captured() {
    ChildProcess::Options options;
    options.captureOutput = true;
    options.captureError = true;
    return options;
}

std::vector<std::string> tracing(std::vector<std::string> options) {
    options.insert(options.begin(), {KELUTV_SIMULATOR, "--trace"});
    return options;
}

} // namespace

Simulator::Simulator(std::vector<std::string> options) : mProcess(tracing(std::move(options)), captured()) {
    if (!mProcess.output().waitFor(kReadyLine)) {
        throw std::runtime_error("the simulator did not get ready: " + mProcess.error().text());
    }
    mProcess.output().take();
}

std::vector<std::string> Simulator::takeTrace() {
    std::istringstream text(mProcess.output().take());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::unique_ptr<ChildProcess> startSimulator(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), KELUTV_SIMULATOR);
    return std::make_unique<ChildProcess>(std::move(arguments), captured());
}

std::unique_ptr<ChildProcess> startSimulator(std::vector<std::string> arguments, int output) {
    arguments.insert(arguments.begin(), KELUTV_SIMULATOR);
    ChildProcess::Options options;
    options.captureError = true;
    const process::Redirection redirection(STDOUT_FILENO, output);
    return std::make_unique<ChildProcess>(std::move(arguments), options);
}

SimulatorEnvironment& SimulatorEnvironment::install(const char* source) {
    return addEnvironment(std::make_unique<SimulatorEnvironment>(), source);
}

void SimulatorEnvironment::SetUp() {
    mRuntimeDir.emplace();
    const WorkingFolder folder(mRuntimeDir->path());
    mSimulator.emplace();
}

void SimulatorEnvironment::TearDown() {
    mSimulator->process().kill(SIGTERM);
    EXPECT_EQ(mSimulator->process().exitCode(), 0) << mSimulator->process().error().text();
    mSimulator.reset();
    mRuntimeDir.reset();
}

Bytes SimulatorEnvironment::transact(const Bytes& request) {
    const auto service = android::defaultServiceManager()->getService(android::String16("TVBaseService"));
    if (service == nullptr) {
        throw std::runtime_error("the simulator is gone");
    }
    return transact(service, request);
}

Bytes SimulatorEnvironment::transact(const android::sp<android::IBinder>& service, const Bytes& request) {
    android::Parcel data;
    android::Parcel reply;
    data.setData(request.data(), request.size());
    const android::status_t status = service->transact(android::IBinder::FIRST_CALL_TRANSACTION, data, &reply);
    if (status != android::NO_ERROR) {
        throw std::runtime_error("the transaction failed with " + std::to_string(status));
    }
    return Bytes(reply.data(), reply.data() + reply.dataSize());
}

} // namespace kelutv::test
