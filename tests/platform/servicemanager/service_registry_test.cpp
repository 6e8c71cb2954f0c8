#include "platform/droid/kernel/KernelTest.h"

#include "droid/CallerIdentity.h"
#include "droid/ParcelObjects.h"
#include "servicemanager/ServiceRegistry.h"
#include "support/Capture.h"
#include "support/Deadline.h"

#include <kqlog/capture.h>

#include <atomic>
#include <future>
#include <memory>
#include <string>
#include <thread>

namespace kelutv::test {
namespace {

using android::BAD_VALUE;
using android::NO_ERROR;
using android::Parcel;
using android::sp;
using android::status_t;
using android::String16;

constexpr uint32_t kGet = 1;
constexpr uint32_t kCheck = 2;
constexpr uint32_t kAdd = 3;
constexpr uint32_t kList = 4;
constexpr uid_t kSystem = 1000;
constexpr uid_t kShell = 2000;
constexpr uid_t kIsolated = 199'001;
constexpr int32_t kDefaultPriority = 8;
constexpr int32_t kAnyPriority = 15;

class ServiceRegistryTest : public KernelTest {
protected:
    class AskingSink;

    static void writeHead(Parcel* request) {
        request->writeInt32(0);    // strict-mode word
        request->writeInt32(1000); // work source
        request->writeString16(String16("android.os.IServiceManager"));
    }

    struct Added {
        uid_t by = kSystem;
        bool allowIsolated = false;
        int32_t priority = kDefaultPriority;
    };

    status_t ask(uint32_t code, const Parcel& request, Parcel* reply, uid_t caller = kSystem) {
        const android::CallerIdentity identity({12, caller});
        return registry->transact(code, request, reply);
    }

    status_t add(const std::string& name, uint32_t handle) { return add(name, handle, Added()); }
    status_t add(const std::string& name, uint32_t handle, const Added& added) {
        Parcel request;
        writeHead(&request);
        request.writeString16(String16(name.c_str()));
        const binder_size_t offset = request.dataPosition();
        flat_binder_object object{};
        object.hdr.type = BINDER_TYPE_HANDLE;
        object.handle = handle;
        request.write(&object, sizeof(object));
        request.writeInt32(added.allowIsolated ? 1 : 0);
        request.writeInt32(added.priority);
        android::ParcelObjects::note(&request, reinterpret_cast<const uint8_t*>(&offset), sizeof(offset));
        Parcel reply;
        const status_t status = ask(kAdd, request, &reply, added.by);
        EXPECT_EQ(reply.dataSize(), status == NO_ERROR ? 4u : 0u);
        return status;
    }

    /** The handle of the service that a caller finds; 0 for a null object. */
    uint32_t found(const std::string& name, uid_t caller = kShell, uint32_t code = kCheck) {
        Parcel request;
        Parcel reply;
        writeHead(&request);
        request.writeString16(String16(name.c_str()));
        EXPECT_EQ(ask(code, request, &reply, caller), NO_ERROR);
        flat_binder_object object{};
        EXPECT_EQ(reply.dataSize(), sizeof(object));
        reply.read(&object, sizeof(object));
        const auto* const offsets = android::ParcelObjects::offsetsOf(reply);
        const bool handle = object.hdr.type == BINDER_TYPE_HANDLE;
        EXPECT_EQ(offsets != nullptr && *offsets == std::vector<binder_size_t>{0}, handle);
        EXPECT_TRUE(handle || (object.hdr.type == BINDER_TYPE_BINDER && object.binder == 0 && object.cookie == 0));
        return handle ? object.handle : 0;
    }

    std::string listed(int32_t index, int32_t priorities = kAnyPriority) {
        Parcel request;
        Parcel reply;
        writeHead(&request);
        request.writeInt32(index);
        request.writeInt32(priorities);
        const status_t status = ask(kList, request, &reply);
        if (status != NO_ERROR) {
            return "status " + std::to_string(status);
        }
        const String16 name = reply.readString16();
        return std::string(name.string(), name.string() + name.size());
    }

    const sp<android::BBinder> registry = new servicemanager::ServiceRegistry(binder, {0, kSystem});
};

TEST_F(ServiceRegistryTest, addedServiceIsFoundByAnyone) {
    ASSERT_EQ(add("tv", 5), NO_ERROR);
    EXPECT_EQ(found("tv", kShell, kGet), 5u);
    EXPECT_EQ(found("tv", kSystem, kCheck), 5u);
    EXPECT_EQ(found("t"), 0u);
    EXPECT_EQ(found(""), 0u);
}

TEST_F(ServiceRegistryTest, laterServiceTakesTheName) {
    LogCapture log;
    ASSERT_EQ(add("tv", 5), NO_ERROR);
    EXPECT_EQ(log.take().size(), 0u);
    ASSERT_EQ(add("tv", 6), NO_ERROR);
    EXPECT_EQ(found("tv"), 6u);
    EXPECT_EQ(listed(1), "status -1");
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "the service tv is replaced");
}

TEST_F(ServiceRegistryTest, namesHaveOneTo127Characters) {
    EXPECT_EQ(add("", 5), BAD_VALUE);
    EXPECT_EQ(add(std::string(128, 'a'), 5), BAD_VALUE);
    EXPECT_EQ(add(std::string(127, 'a'), 5), NO_ERROR);
    EXPECT_EQ(found(std::string(127, 'a')), 5u);
}

TEST_F(ServiceRegistryTest, serviceIsAnObject) {
    Parcel request;
    Parcel reply;
    writeHead(&request);
    request.writeString16(String16("tv"));
    android::ParcelObjects::write(&request, nullptr);
    EXPECT_EQ(ask(kAdd, request, &reply), BAD_VALUE);
    EXPECT_EQ(found("tv"), 0u);
}

TEST_F(ServiceRegistryTest, onlyAskingSinksAdd) {
    LogCapture log;
    EXPECT_EQ(add("tv", 5, {kShell}), android::PERMISSION_DENIED);
    EXPECT_EQ(found("tv"), 0u);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "uid 2000 may not add the service tv");
    EXPECT_EQ(add("tv", 5, {0}), NO_ERROR);
}

TEST_F(ServiceRegistryTest, isolatedUsersFindWhatIsAllowedForThem) {
    ASSERT_EQ(add("closed", 5), NO_ERROR);
    ASSERT_EQ(add("open", 6, {kSystem, true}), NO_ERROR);
    EXPECT_EQ(found("closed", kIsolated), 0u);
    EXPECT_EQ(found("open", kIsolated), 6u);
    EXPECT_EQ(found("closed", 100'000), 5u);
}

TEST_F(ServiceRegistryTest, listNamesOneServiceAtATime) {
    EXPECT_EQ(listed(0), "status -1");
    ASSERT_EQ(add("b", 5, {kSystem, false, 1}), NO_ERROR);
    ASSERT_EQ(add("a", 6, {kSystem, false, 8}), NO_ERROR);
    EXPECT_EQ(listed(0), "a");
    EXPECT_EQ(listed(1), "b");
    EXPECT_EQ(listed(2), "status -1");
    EXPECT_EQ(listed(-1), "status -1");
    EXPECT_EQ(listed(0, 1), "b");
    EXPECT_EQ(listed(1, 1), "status -1");
    EXPECT_EQ(listed(0, 2), "status -1");
}

TEST_F(ServiceRegistryTest, requestOfAnotherInterfaceIsRefused) {
    const LogCapture log;
    Parcel request;
    Parcel reply;
    request.writeInt32(0);
    request.writeInterfaceToken(String16("android.ITVBaseService"));
    EXPECT_EQ(ask(kCheck, request, &reply), android::PERMISSION_DENIED);
    EXPECT_EQ(ask(kCheck, Parcel(), &reply), android::PERMISSION_DENIED);
    EXPECT_EQ(ask(5, request, &reply), android::UNKNOWN_TRANSACTION);
}

/** A log that is not written to its end before the registry has answered another thread. */
class ServiceRegistryTest::AskingSink : public kqlog::Sink {
public:
    explicit AskingSink(ServiceRegistryTest& test) : mTest(test) { kqlog::installSink(this); }
    ~AskingSink() override { kqlog::removeSink(); }

    void write(int, const char*, const char* text) override {
        mText = text;
        // Left to itself should it never be answered.
        auto answer = std::make_shared<std::promise<void>>();
        std::thread([this, answer] {
            mTest.found("other");
            answer->set_value();
        }).detach();
        mAnswered = answer->get_future().wait_for(kPatience) == std::future_status::ready;
    }

    bool answered() const { return mAnswered; }
    const std::string& text() const { return mText; }

private:
    ServiceRegistryTest& mTest;
    std::string mText;
    std::atomic<bool> mAnswered{false};
};

TEST_F(ServiceRegistryTest, serviceGoesWithItsProcess) {
    ASSERT_EQ(add("tv", 5), NO_ERROR);
    ASSERT_EQ(add("other", 6), NO_ERROR);
    binder_uintptr_t cookie = 0;
    for (const Command& sent : driver.takeSent()) {
        if (sent.code == BC_REQUEST_DEATH_NOTIFICATION && sent.as<binder_handle_cookie>().handle == 5) {
            cookie = sent.as<binder_handle_cookie>().cookie;
        }
    }
    const AskingSink asking(*this);
    driver.sayToServers({command(BR_DEAD_BINDER, cookie)});
    EXPECT_TRUE(eventually([this] { return found("tv") == 0; }));
    EXPECT_EQ(found("other"), 6u);
    EXPECT_TRUE(eventually([&asking] { return asking.answered(); })) << "nobody is answered while a line is written";
    EXPECT_EQ(asking.text(), "the process of the service tv is gone");
}

TEST_F(ServiceRegistryTest, serviceThatDiesWhileItIsEnteredGoes) {
    for (uint32_t round = 1; round <= 100; ++round) {
        std::thread driversWord([this] {
            binder_uintptr_t cookie = 0;
            EXPECT_TRUE(eventually([&] {
                for (const Command& sent : driver.takeSent()) {
                    cookie =
                        sent.code == BC_REQUEST_DEATH_NOTIFICATION ? sent.as<binder_handle_cookie>().cookie : cookie;
                }
                return cookie != 0;
            }));
            driver.sayToServers({command(BR_DEAD_BINDER, cookie)});
        });
        const status_t status = add("tv", round);
        driversWord.join();
        ASSERT_EQ(status, NO_ERROR);
        ASSERT_TRUE(eventually([this] { return found("tv") == 0; }));
    }
}

} // namespace
} // namespace kelutv::test
