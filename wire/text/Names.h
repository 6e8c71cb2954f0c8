#pragma once

#include "wire/Interface.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelutv::wire {

/** A word that names no value, or several; the message says what is allowed. */
class UnknownName : public std::invalid_argument {
public:
    using std::invalid_argument::invalid_argument;
};

/**
 * What the values of one thing are called, and which of them a person means.
 *
 * A short name is the name without the words that all names, or nearly all, begin with, in small letters: `hdmi2` of
 * `KELU_TV_SRC_HDMI2`.
 */
class Names {
public:
    /** @param of what the names belong to, as messages call it */
    Names(std::string of, const std::vector<Enumerator>& enumerators);

    /**
     * The value meant by a full name, a short name, or an unambiguous piece of one. The case of letters does not count,
     * and `_` may be `-` or left out.
     * @throws UnknownName with the names that are allowed, or those that may be meant
     */
    std::int32_t valueOf(const std::string& word) const;

    /** The short name of a value; empty when it has no name. */
    std::string shortNameOf(std::int32_t value) const;

    /** In the order of the enumeration, without end markers. */
    const std::vector<std::string>& shortNames() const { return mShortNames; }

    /** The short names apart by commas; of very many only the first. */
    std::string listed() const;

private:
    struct Name {
        std::string full;
        std::string brief;
        std::int32_t value;
        bool isEndMarker;
    };
    using Match = bool (*)(const std::string& name, const std::string& wanted);

    /** Of the short names, or else of the full ones. */
    std::string hintFor(const std::string& word) const;
    std::vector<const Name*> matching(const std::string& wanted, Match match) const;

    std::string mOf;
    std::vector<Name> mNames;
    std::vector<std::string> mShortNames;
};

/** The names of one enumeration of the interface; made once. */
const Names& namesOf(const Enumeration& enumeration);

} // namespace kelutv::wire
