#pragma once

#include "tools/kelutv/compliance/clients/Client.h"

#include <string>

namespace kelutv::tool::compliance {

/** Learns what witnesses ask for, where that is not known yet. @throws ToolError when there is nothing, LinkError */
void requireKnownAnswers();

/** A client that is connected before something happens, and says afterwards whether its service is still there. */
class Witness {
public:
    /** @throws ToolError when it is not answered, LinkError when there is no service */
    Witness();

    /** Lets it ask again. @return what is wrong; empty when it was answered as before */
    std::string complaint();

private:
    Client mClient;
};

/** A client that calls as fast as it can until it is killed; its first answer is there. @throws ToolError when not */
class Caller {
public:
    Caller();

    void kill(int signal) const { mClient.kill(signal); }

private:
    Client mClient;
};

} // namespace kelutv::tool::compliance
