#pragma once

#include "UniqueFd.h"

#include <sys/socket.h>
#include <sys/types.h>
#include <sys/uio.h>

#include <chrono>
#include <cstddef>
#include <string>

namespace kq {

/** Who is at the other end of a connection, as the kernel says. */
struct Peer {
    pid_t pid;
    uid_t uid;
};

/**
 * @name Unix SEQPACKET sockets, close-on-exec.
 *
 * The functions that give a descriptor give an empty one on failure, with the reason in errno.
 * @{
 */

/** Whether sends and receives on a connection may wait. Connecting and accepting never do. */
enum class Waiting { Allowed, Never };

/** A socket that listens at `path`. EADDRINUSE when there is an entry already, living or stale. */
UniqueFd listenAt(const std::string& path);
/**
 * A connection to whoever listens at `path`: ECONNREFUSED when nobody does any more, EAGAIN when a living process takes
 * no further connections just now, EACCES when it is another user's.
 */
UniqueFd connectTo(const std::string& path, Waiting waiting = Waiting::Allowed);
/** The next waiting connection: EAGAIN when there is none, EACCES, with the connection closed, when it is another
 * user's. */
UniqueFd acceptFrom(int listener, Peer* peer, Waiting waiting = Waiting::Allowed);

/** True when the entry at `path` has nobody listening any more. */
bool isStale(const std::string& path);
/** @} */

/** How long a receive from a socket may wait; 0 is for as long as it takes. */
bool limitReceiving(int socket, std::chrono::microseconds time);

/** The peer of a connected socket. */
Peer peerOf(int socket);

/** What is left of sendPacket() and receivePacket() after a first attempt that failed, with the reason in errno. */
bool sendPacketAgain(int socket, const void* bytes, size_t length, int flags);
ssize_t receivePacketAgain(int socket, void* buffer, size_t capacity, int flags);

/** Sends one packet, with `flags` of send(2); false, with the reason in errno, when the peer is gone or does not take
 * it. */
inline bool sendPacket(int socket, const void* bytes, size_t length, int flags = 0) {
    return ::send(socket, bytes, length, MSG_NOSIGNAL | flags) >= 0 || sendPacketAgain(socket, bytes, length, flags);
}

/** The same for one packet made of `count` pieces. */
bool sendPacket(int socket, const iovec* pieces, size_t count, int flags = 0);

/**
 * recv(2) of one packet with `flags`, taken up again after signals: its length, more than `capacity` when it did not
 * fit. What the peer sent before it closed the connection comes before the word of that.
 */
inline ssize_t receivePacket(int socket, void* buffer, size_t capacity, int flags) {
    const ssize_t received = ::recv(socket, buffer, capacity, MSG_TRUNC | flags);
    return received >= 0 ? received : receivePacketAgain(socket, buffer, capacity, flags);
}

/** Receives one packet: its length, 0 when the peer is gone, `capacity` + 1 or more when it did not fit. */
size_t receivePacket(int socket, void* buffer, size_t capacity);

} // namespace kq
