#include "foreign/platform/sockets/SocketRoute.h"

#include "foreign/platform/sockets/Sockets.h"

#include <cstring>

namespace foreign {

namespace {

class SocketRemote : public Remote {
public:
    SocketRemote(std::string folder, std::string name, Descriptor life)
        : mFolder(std::move(folder)), mName(std::move(name)), mLife(std::move(life)) {}

    android::status_t call(std::uint32_t code, const Bytes& request, Bytes& reply) override {
        if (isHungUp(mLife)) {
            return android::DEAD_OBJECT;
        }
        const Descriptor connection = connectTo(mFolder, mName);
        if (!connection.isOpen()) {
            return android::DEAD_OBJECT;
        }
        if (!send(connection, {static_cast<std::uint32_t>(Purpose::Call), {}}) || !send(connection, {code, request})) {
            return android::NOT_SENT;
        }
        std::optional<Packet> answer = receive(connection);
        if (!answer) {
            return android::DEAD_OBJECT;
        }
        reply = std::move(answer->bytes);
        return static_cast<android::status_t>(answer->word);
    }

    void awaitEnd() override { awaitHangUp(mLife); }

private:
    const std::string mFolder;
    const std::string mName;
    const Descriptor mLife;
};

} // namespace

std::shared_ptr<Remote> SocketRoute::find(const std::string& name, std::string& reason) {
    Descriptor life = connectTo(mFolder, name);
    if (!life.isOpen() || !send(life, {static_cast<std::uint32_t>(Purpose::Life), {}})) {
        reason = mFolder + '/' + name + ": " + std::strerror(errno);
        return nullptr;
    }
    return std::make_shared<SocketRemote>(mFolder, name, std::move(life));
}

} // namespace foreign
