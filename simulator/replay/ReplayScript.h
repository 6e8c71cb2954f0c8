#pragma once

#include "simulator/television/PublishedEvent.h"
#include "wire/codec/Request.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** What is wrong with a recording, or with how it is to be replayed. */
struct ReplayError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/** A request that was recorded, and what came of it. */
struct RecordedCall {
    /** In the file, counted from 1. */
    std::size_t line;
    /** Which of the processes of the recording sent it. */
    std::size_t client;
    /** Which of the threads of all these processes. */
    std::size_t thread;
    /** What stands behind the interface token: requests are the same when this is. */
    std::string key;
    wire::Request request;
    /** Of the transport: 0 when a reply came. */
    std::int32_t status;
    /** The bytes of the reply, from the result word on. */
    std::string reply;
    /** Since time 0 of its section, and how long it took. */
    std::chrono::nanoseconds begin;
    std::chrono::nanoseconds duration;
    /** The death of the service that it met, or that it failed behind, as an index of absences. */
    std::optional<std::size_t> death;
    /** It failed since its process had found no service, and fails again when it comes. */
    bool isWithoutService = false;
};

/** An event that was given to processes, or a death of the service that no request met. */
struct Happening {
    /** The first line that tells of it. */
    std::size_t line;
    /** The request that had been asked for last, in this section or one before, as an index of calls; nothing for what
     * came before all requests. */
    std::optional<std::size_t> call;
    /** It came before that request had its answer. */
    bool isDuring;
    /** Since that request was asked for, when it came during it, else since its answer; without a request of its
     * section since time 0 of that. */
    std::chrono::nanoseconds delay;
    /** The index of the absence that begins; nothing for an event. */
    std::optional<std::size_t> death;
    PublishedEvent event;
};

/** What a recording tells of a television, in the order of its lines. */
struct ReplayScript {
    /** What messages call the recording. */
    std::string name;
    std::vector<RecordedCall> calls;
    std::vector<Happening> happenings;
    std::size_t clients = 0;
    std::size_t threads = 0;
    /** Of each death: how long there was no service, as far as the recording knows, which is until the first request
     * that was answered again was sent, else until its section ends. */
    std::vector<std::chrono::nanoseconds> absences;
    /** What whoever replays it should know of it: what was left out, and what is not as it is here. */
    std::vector<std::string> remarks;
};

/**
 * Reads a recording. Lines that are damaged are left out, with a remark.
 *
 * @throws ReplayError when it cannot be read, is no recording, or nothing can be replayed
 */
ReplayScript readReplayScript(const std::string& path);

/** What stands behind the interface token of a request, whatever form that has; all of it where there is none. */
std::string requestKeyOf(const std::uint8_t* bytes, std::size_t size);

} // namespace kelutv::simulator
