#pragma once

#include <kelutv-service/Value.h>

#include <cstdint>
#include <string>
#include <utility>

namespace kelutv::service {

/** What is answered to a request. Its form is held against the catalogue before it is sent. */
class Reply {
public:
    /** A set or an action is done. */
    static Reply done() { return Reply(0, {}, ""); }

    /**
     * What is read: the values in the order of the catalogue, the fields of a record one by one. The number that leads
     * a block is not among them; it follows from the others. Of an operation whose result word is the value, that one.
     */
    static Reply of(Values values) { return Reply(0, std::move(values), ""); }

    /** The television does not have this: result -112. */
    static Reply refused();

    /** A value that cannot be: result -107. */
    static Reply outOfRange(std::string why);

    /** Another failure. @param result what the client gets; not 0 */
    static Reply failed(std::int32_t result, std::string why) { return Reply(result, {}, std::move(why)); }

    std::int32_t result() const { return mResult; }
    const Values& values() const { return mValues; }
    /** Why it was refused, in words, which do not go over the wire. */
    const std::string& why() const { return mWhy; }

private:
    Reply(std::int32_t result, Values values, std::string why)
        : mResult(result), mValues(std::move(values)), mWhy(std::move(why)) {}

    std::int32_t mResult;
    Values mValues;
    std::string mWhy;
};

} // namespace kelutv::service
