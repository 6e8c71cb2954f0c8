#pragma once

#include <kelutv-service/Events.h>
#include <kelutv-service/Reply.h>
#include <kelutv-service/Request.h>
#include <kelutv-service/Settings.h>

#include <functional>
#include <memory>
#include <string>

namespace kelutv::service {

/**
 * Carries out the requests of one module. Requests come one at a time, whatever module they are for; what a handler
 * publishes is out before its reply. An exception that leaves it is said on standard error, and the client gets the
 * result -113.
 */
using Handler = std::function<Reply(const Request& request, Events& events)>;

/**
 * The service of a television: clients find it as "TVBaseService".
 *
 * Requests that cannot be read, and those without a handler, are refused.
 */
class Service {
public:
    /**
     * To be made first of all, before the process has threads.
     *
     * @param name of the program, before what it prints
     * @throws std::system_error when the system has no process for it
     */
    explicit Service(const std::string& name);
    ~Service();
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    /** @param module of the catalogue: `audio`; @throws std::invalid_argument for one without commands */
    void handle(const std::string& module, Handler handler);

    /** For events that no request brings about. */
    Events& events();

    /**
     * Serves until SIGINT or SIGTERM, and prints `NAME: ready (TVBaseService)` when clients can call.
     *
     * @return the exit code of the program: 0, or 1 when it could not serve, which is said on standard error
     */
    int run();

private:
    class Implementation;
    const std::unique_ptr<Implementation> mImplementation;
};

} // namespace kelutv::service
