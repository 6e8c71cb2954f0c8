#pragma once

#include <kelutv-service/Value.h>

#include <cstdint>
#include <string>

namespace kelutv::wire {
struct Request;
}

namespace kelutv::service {

/**
 * One request of a client, which has been read to its end and has the form of the catalogue.
 *
 * What it says is found by the names of the catalogue, as `kelutv describe` shows them: `vol`, `prescale.gain`. A name
 * that the request does not have, and a value of another kind, throw std::invalid_argument.
 */
class Request {
public:
    /** What a request does to the state that it names. */
    enum class Access { None, Set, Get };

    /** @param request must outlive this one */
    explicit Request(const wire::Request& request) : mRequest(request) {}

    /** The command, as in <kelutv/commands.h>, and its name there: `CMD_AUDIO_SETVOLUME`. */
    std::int32_t command() const;
    const char* name() const;

    /** Whether the command carries items, and the one that it picks, as in <kelutv/items.h>; else 0. */
    bool hasItem() const;
    std::int32_t item() const;

    /** @name One value. @{ */
    std::int32_t integer(const std::string& name) const;
    bool flag(const std::string& name) const { return integer(name) != 0; }
    double real(const std::string& name) const;
    const std::string& text(const std::string& name) const;
    /** @} */

    /** All values of a block, in their order. */
    const Values& values(const std::string& name) const;

    /** The state that the request sets or reads: `audio.volume`; empty for one that does something else. */
    std::string state() const;
    Access access() const;
    /** Under which keys, in the order of the catalogue: the channel of `audio.volume`. */
    Values keys() const;
    /** What a set gives to the state. */
    Values given() const;

    /** The request as it was read. */
    const wire::Request& wire() const { return mRequest; }

private:
    const wire::Request& mRequest;
};

} // namespace kelutv::service
