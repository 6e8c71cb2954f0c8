#pragma once

#include <utils/Errors.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace foreign {

using Bytes = std::vector<std::uint8_t>;

/** An object of another process, as its route reaches it. */
class Remote {
public:
    Remote() = default;
    virtual ~Remote() = default;
    Remote(const Remote&) = delete;
    Remote& operator=(const Remote&) = delete;

    /** One call and its reply, on several threads at once; DEAD_OBJECT when the process is gone. */
    virtual android::status_t call(std::uint32_t code, const Bytes& request, Bytes& reply) = 0;

    /** Returns when the process is gone; on one thread, which does nothing else. */
    virtual void awaitEnd() = 0;
};

/** The way to other processes. */
class Route {
public:
    Route() = default;
    virtual ~Route() = default;
    Route(const Route&) = delete;
    Route& operator=(const Route&) = delete;

    /** The service of this name. Null, with the reason in words, when there is none. */
    virtual std::shared_ptr<Remote> find(const std::string& name, std::string& reason) = 0;
};

/** Sockets in the folder that FOREIGN_FOLDER names; without it the kernel's binder driver. */
Route& route();

} // namespace foreign
