#pragma once

#include "tools/kelutv/output/Json.h"
#include "tools/process/Deadline.h"
#include "tools/process/MessagePipe.h"
#include "tools/process/Worker.h"

#include <functional>
#include <optional>
#include <string>

namespace kelutv::tool::compliance {

/** What a client says to the process that started it, and hears from it. */
class ClientLine {
public:
    ClientLine(process::MessagePipe& says, process::MessagePipe& hears) : mSays(says), mHears(hears) {}

    void say(const Json& message) const;
    /** Waits for what the other process says, or for its end. */
    void hear() const;

private:
    process::MessagePipe& mSays;
    process::MessagePipe& mHears;
};

/**
 * A process that is a client of the service by itself, and ends with this one at the latest. This process must have one
 * thread and not have used the library.
 */
class Client {
public:
    /** @param work may use the library; a ToolError of it is heard as `{"error": TEXT}` */
    explicit Client(const std::function<void(const ClientLine& line)>& work);

    /** What the client says next; nothing when it has ended or says nothing until then. */
    std::optional<Json> hear(process::Deadline deadline);
    void say(const Json& message) const;
    void kill(int signal) const { mWorker.kill(signal); }

private:
    int doWork(const std::function<void(const ClientLine& line)>& work);

    process::MessagePipe mHears;
    process::MessagePipe mSays;
    process::Worker mWorker;
};

} // namespace kelutv::tool::compliance
