#include "simulator/VolumeClient.h"

namespace kelutv::test {

namespace {

ChildProcess::Options captured() {
    ChildProcess::Options options;
    options.captureOutput = true;
    return options;
}

} // namespace

VolumeClient::VolumeClient(int times) : mProcess({KELUTV_VOLUME_CLIENT, std::to_string(times)}, captured()) {}

std::string VolumeClient::answers() {
    return mProcess.exitCode() == 0 ? mProcess.output().text() : "the client did not end";
}

} // namespace kelutv::test
