#pragma once

#include "wire/codec/ByteReader.h"
#include "wire/codec/Reply.h"

#include <cstddef>
#include <optional>
#include <string>

namespace kelutv::wire {

/** What is wrong with a reply, and at which byte. */
struct ReplyFlaw {
    enum class Kind {
        /** Something is not there. */
        Missing,
        /** A text has no end. */
        Unterminated,
        /** Something stands behind the last field. */
        TooMuch,
    };

    std::size_t offset;
    std::string text;
    Kind kind = Kind::Missing;
};

/** A reply as far as it could be read. */
struct ReplyReading {
    bool hasResult = false;
    Reply reply;
    std::optional<ReplyFlaw> flaw;
};

/**
 * Reads what `writeReply` wrote for this operation. Behind the last field the fields may come again where they make a
 * list.
 *
 * @param arguments of the request, which may say how much has to come; null when they are not known
 */
ReplyReading readReply(const Operation& operation, ByteReader& data, const Arguments* arguments = nullptr);

} // namespace kelutv::wire
