#pragma once

#include "platform/droid/kernel/KernelTest.h"
#include "support/Wire.h"

#include <binder/Binder.h>

#include <sys/types.h>

#include <string>
#include <vector>

namespace kelutv::test {

/** The service manager, asked in the words of one level by processes that the test plays. */
class ManagerTest : public KernelTest {
protected:
    static constexpr uint32_t kGet = 1;
    static constexpr uint32_t kCheck = 2;
    static constexpr uint32_t kAdd = 3;
    static constexpr uint32_t kList = 4;
    static constexpr uid_t kSystem = 1000;
    static constexpr uid_t kShell = 2000;
    static constexpr uid_t kIsolated = 199'001;
    static constexpr int32_t kDefaultPriority = 8;
    static constexpr int32_t kAnyPriority = 15;
    /** For an answer that is none of a manager of the level. */
    static constexpr int kMalformed = 12345;

    explicit ManagerTest(int ofLevel = 28);

    struct Added {
        uid_t by = kSystem;
        bool allowIsolated = false;
        int32_t priority = kDefaultPriority;
        int32_t stability = 12;
    };

    /** A request of the level, up to behind its token. */
    Wire request() const { return Wire::token(level, u"android.os.IServiceManager"); }
    /** What an object by handle looks like in a parcel. */
    static Bytes objectOf(uint32_t handle);

    /** Status and bytes of the answer to a request, in which an object stands at `object`, if any. */
    struct Answered {
        android::status_t status;
        Bytes bytes;
        std::vector<binder_size_t> objects;
    };
    static constexpr size_t kNoObject = SIZE_MAX;
    Answered ask(uint32_t code, const Bytes& content, uid_t caller = kSystem, size_t object = kNoObject);

    /** 0 for success; else the status of levels 28 and 29, or the exception of level 30. */
    int add(const std::string& name, uint32_t handle) { return add(name, handle, Added()); }
    int add(const std::string& name, uint32_t handle, const Added& added);
    /** The outcome of a call that answers nothing else. */
    int outcomeOf(const Answered& answered) const;

    /** The handle of the service that a caller finds; 0 for none. */
    uint32_t found(const std::string& name, uid_t caller = kShell, uint32_t code = kCheck);
    /** What the list has, with a space between. */
    std::string listed(int32_t priorities = kAnyPriority);

    /** The cookie of the death notice that was asked for last for a handle. */
    binder_uintptr_t cookieOf(uint32_t handle);

    const int level;
    const android::sp<android::BBinder> manager;
};

} // namespace kelutv::test
