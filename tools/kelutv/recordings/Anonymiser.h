#pragma once

#include "recording/Line.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/recordings/KeyedHash.h"
#include "wire/codec/Reply.h"
#include "wire/codec/Request.h"
#include "wire/text/RequestPattern.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** The commands and items whose values tell which television it is, or whose: serial numbers, MAC, keys, passwords,
 * names. */
const std::vector<std::string>& identityRequests();

/**
 * Masks what identifies a television or its owner: texts, blocks and their checksums in the identity requests, the
 * bytes of the EEPROM, and texts in events. A mask has the length and the kinds of letters of what it stands for, and
 * the same text or block has the same mask everywhere. Of what is meant and cannot be read, all bytes from there on are
 * masked. All else stays as it is, byte for byte.
 */
class Anonymiser {
public:
    /** @param more requests whose texts and blocks are masked as well */
    Anonymiser(const KeyedHash& hash, std::vector<wire::RequestPattern> more);

    /** @return false when nobody can say what it is, so that it stays: a request that is none of the interface, or an
     * event that is not known */
    bool mask(recording::Line& line) const;

private:
    bool mask(recording::Transaction& transaction) const;
    bool mask(recording::Event& event) const;
    void maskRequest(const DecodedRequest& decoded, recording::Bytes& bytes) const;
    void maskReply(const wire::Request& request, recording::Bytes& reply) const;
    void maskValues(recording::Bytes& bytes, std::size_t& at, wire::Encoding encoding,
                    const wire::Values& values) const;
    void maskText(std::uint8_t* letters, std::size_t length) const;
    void maskText16(std::uint8_t* units, std::size_t count) const;
    void maskBlock(std::uint8_t* bytes, std::size_t length) const;
    void maskFrom(recording::Bytes& bytes, std::size_t at) const;
    /** Numbers that are bytes; the zeros that fill up a block stay. */
    void maskNumbers(std::uint8_t* bytes, std::size_t count) const;
    std::uint64_t chanceFor(const std::string& whole, std::size_t place) const;
    bool isMeant(const wire::Request& request) const;

    KeyedHash mHash;
    std::vector<wire::RequestPattern> mPatterns;
};

} // namespace kelutv::tool
