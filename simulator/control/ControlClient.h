#pragma once

#include "simulator/control/Answer.h"

#include "socket/UniqueFd.h"

#include <stdexcept>
#include <string>

namespace kelutv::simulator {

/** There is no simulator, or it is gone, or it does not answer. */
class NoSimulator : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/** A connection to the control channel of the simulator that runs in the same runtime directory. */
class ControlClient {
public:
    static constexpr int kUsualPatienceMs = 10000;

    /** @param patienceMs how long to wait for an answer. @throws NoSimulator */
    explicit ControlClient(int patienceMs = kUsualPatienceMs);

    /**
     * Has a line carried out.
     * @throws NoSimulator when no answer comes in time
     * @throws std::invalid_argument for a line that is too long or has a line end in it; nothing is sent then
     */
    Answer ask(const std::string& line);

private:
    void send(const std::string& line);
    /** Waits until the socket is ready; `events` are those of poll. */
    void wait(short events) const;

    kq::UniqueFd mSocket;
    const int mPatienceMs;
};

} // namespace kelutv::simulator
