#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/snapshot/PuttingBack.h"
#include "tools/kelutv/snapshot/Snapshot.h"

#include <optional>
#include <set>
#include <string>

namespace kelutv::tool::compliance {

/** Ends a check with what it came to. */
struct Ended {
    Outcome outcome;
};

/**
 * From now on checks set no other states than these, in this process and those that it starts; what they hold is in the
 * file of what is to be put back.
 */
void setOnly(std::set<std::string> states);

/** A state as a check holds it while it sets it: what it was is put back by `putBack`, or at the end. */
class Setting {
public:
    /** Reads what it is. @throws Ended when it cannot be read, or is not to be set */
    Setting(Television& television, const wire::Function& setter, const Reading& reading);
    /** Puts it back where nobody has, as far as that goes. */
    ~Setting();
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

    /** Gives it another value that the service takes. @throws Ended when it takes none */
    void setOther();

    /** Gives it these values. @throws Ended when there is no such call, or the service does not take it */
    void set(const Json& values);

    /**
     * The only request that would give it another value. What was sent since is taken for it, so that the value is put
     * back at the end.
     *
     * @throws Ended when there is no such request
     */
    Bytes requestForOther();

    /** @throws Ended unless it reads as it did at first */
    void requireUnchanged();

    /** Sets the same once more. @throws Ended when it is not taken again */
    void setAgain();

    /** @throws Ended unless it reads as what was set */
    void requireSet() const;

    /** Gives it the value that it had, and reads that. @throws Ended when one of the two fails */
    void putBack();

private:
    template <typename Try> void tryOthers(Try isTaken);
    std::optional<Outcome> send(const SetCall& call) const;
    void requireRead(const Json& wanted, const std::string& when) const;

    Television& mTelevision;
    const wire::Function& mSetter;
    HeldState mBefore;
    SetCall mBack;
    SetCall mCall{nullptr, {}};
    Json mWanted;
    /** Whether it may hold another value than it did. */
    bool mIsSet = false;
};

} // namespace kelutv::tool::compliance
