#pragma once

#include "foreign/platform/droid/Route.h"

namespace foreign {

/** Packet sockets in a folder, one for each service; a connection for each call, and one that shows that it lives. */
class SocketRoute : public Route {
public:
    explicit SocketRoute(std::string folder) : mFolder(std::move(folder)) {}

    std::shared_ptr<Remote> find(const std::string& name, std::string& reason) override;

private:
    const std::string mFolder;
};

} // namespace foreign
