#pragma once

#include "tools/kelutv/output/Json.h"

#include <cstdint>
#include <string>

namespace kelutv::tool {

/** Reads the members of one object of a file. What is wrong ends the command, with the place in the file. */
class JsonMembers {
public:
    /** @param place begins each complaint @throws UsageError when it is no object */
    JsonMembers(const Json& object, std::string place);

    /** The member of this name. @throws UsageError when there is none, as do those below for another kind of value */
    const Json& member(const std::string& name) const;
    /** Null pointer when there is none. */
    const Json* optional(const std::string& name) const { return mObject.find(name); }
    const std::string& text(const std::string& name) const;
    const Json& list(const std::string& name) const;
    double number(const std::string& name) const;
    std::int64_t integer(const std::string& name) const;

    /** @throws UsageError with the complaint unless it holds */
    void require(bool holds, const std::string& complaint) const;

    const std::string& place() const { return mPlace; }

private:
    const Json& mObject;
    std::string mPlace;
};

/** The object that a file holds. @throws UsageError when the text is not JSON */
Json jsonOfFile(const std::string& text, const std::string& file);

} // namespace kelutv::tool
