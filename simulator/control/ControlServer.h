#pragma once

#include "simulator/control/Answer.h"
#include "simulator/control/ControlMessage.h"

#include "socket/UniqueFd.h"

#include <poll.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace kelutv::simulator {

/**
 * Serves the control channel in a thread of its own, from construction to destruction: any number of lines from each of
 * several clients, all of this user.
 *
 * A client whose answer has not been taken waits for its next line and delays no other; one that sends anything but a
 * line is shut out; when there are too many, the one that has been silent longest is shut out.
 */
class ControlServer {
public:
    using Receiver = std::function<Answer(const std::string& line)>;

    static constexpr std::size_t kMostClients = 32;

    /** @throws std::runtime_error when clients could not connect */
    explicit ControlServer(Receiver receiver);
    ~ControlServer();
    ControlServer(const ControlServer&) = delete;
    ControlServer& operator=(const ControlServer&) = delete;

private:
    struct Client {
        kq::UniqueFd socket;
        ControlMessage line{kLongestLine};
        /** The packets of the answer that have not been taken yet. */
        std::deque<std::string> answer;
        std::uint64_t lastUse = 0;
    };

    void serve();
    bool serveOnce();
    std::vector<pollfd> waits() const;
    void accept();
    void makeRoom();
    /** Takes what has come from the client, or gives it more of its answer; false when it is to be shut out. */
    bool attend(Client& client);
    bool receive(Client& client);

    const Receiver mReceiver;
    std::string mPath;
    kq::UniqueFd mListener;
    kq::UniqueFd mStop;
    std::vector<Client> mClients;
    std::uint64_t mUses = 0;
    bool mAcceptPaused = false;
    /** Seen also when nothing can be waited for. */
    std::atomic<bool> mIsEnding{false};
    std::thread mThread;
};

} // namespace kelutv::simulator
