#pragma once

#include "support/ChildProcess.h"

#include <string>

namespace kelutv::test {

/** An application in a process of its own that asks for the volume of the speaker. */
class VolumeClient {
public:
    /** @param times how often it asks */
    explicit VolumeClient(int times);

    pid_t pid() const { return mProcess.pid(); }

    bool isRunning() { return !mProcess.wait(std::chrono::milliseconds(0)); }

    /** One line for each answer, once it has ended. */
    std::string answers();

private:
    ChildProcess mProcess;
};

} // namespace kelutv::test
