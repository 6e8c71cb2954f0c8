#pragma once

#include "socket/UniqueFd.h"
#include "support/Wire.h"

#include <string>

namespace kelutv::test {

/** Sockets that speak to the runtime without it, and may say anything. Every wait is bounded; what fails throws. */

/** What a server says first on a connection: a status that is not 0 refuses it. */
Bytes greeting(int32_t status = 0, int32_t instance = 1, int32_t version = 2);

/** Listens where a service of the name would. */
class RawService {
public:
    explicit RawService(const std::string& path);
    /** The next connection that the runtime makes, greeted. */
    kq::UniqueFd accept(const Bytes& greeting = test::greeting()) const;
    /** The same without a greeting. */
    kq::UniqueFd acceptSilently() const;

private:
    kq::UniqueFd mListener;
};

/** A connection to a service, its greeting taken. */
kq::UniqueFd rawConnection(const std::string& path);

/** The same before its greeting. */
kq::UniqueFd rawSilentConnection(const std::string& path);

/** One packet, an empty one included. False when the other end is gone. */
bool sendRaw(const kq::UniqueFd& socket, const Bytes& packet);

/** The next packet; empty when the other end is gone. */
Bytes receiveRaw(const kq::UniqueFd& socket);

/** The head that stands before a parcel's bytes. */
Bytes head(uint32_t size, uint32_t code, uint32_t flags = 0, int32_t status = 0, uint32_t number = 1);

/** A head and the bytes behind it. */
Bytes message(const Bytes& head, const Bytes& body);

} // namespace kelutv::test
