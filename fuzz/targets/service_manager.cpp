#include "fuzz/support/Driver.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/Target.h"

#include "droid/CallerIdentity.h"
#include "droid/InterfaceToken.h"
#include "droid/ParcelObjects.h"
#include "droid/kernel/ServiceManagerProtocol.h"
#include "servicemanager/Manager.h"

#include <binder/Parcel.h>

#include <array>
#include <vector>

/** Any requests of any users to a service manager, and deaths of those whose services it knows. */
namespace kelutv::fuzz {
namespace {

using android::Parcel;

constexpr uid_t kRegistrar = 1000;
constexpr std::array<android::BinderLevel, 3> kLevels{android::BinderLevel::k28, android::BinderLevel::k29,
                                                      android::BinderLevel::k30};
constexpr std::array<uid_t, 4> kCallers{kRegistrar, 2000, 99'000, 199'999};

/** What a request is made of; its binders stand where the driver says. */
class RequestMaker {
public:
    explicit RequestMaker(Input& input) : mInput(input) {}

    void fill(Parcel& request) {
        if (const std::size_t form = mInput.below(8); form != 0) {
            android::writeInterfaceToken(&request, kLevels[(form - 1) % kLevels.size()],
                                         android::serviceManagerInterface());
        }
        for (std::size_t pieces = mInput.below(6); pieces > 0; --pieces) {
            add(request);
        }
        android::ParcelObjects::note(&request, reinterpret_cast<const std::uint8_t*>(mOffsets.data()),
                                     mOffsets.size() * sizeof(binder_size_t));
        request.setDataPosition(0);
    }

private:
    void add(Parcel& request) {
        switch (mInput.below(4)) {
        case 0:
            addName(request);
            break;
        case 1:
            addObject(request);
            break;
        case 2:
            request.writeInt32(mInput.small());
            break;
        default:
            addBytes(request);
        }
    }

    void addName(Parcel& request) {
        const Bytes bytes = mInput.take(mInput.number<std::uint8_t>());
        const std::u16string units(bytes.begin(), bytes.end());
        request.writeString16(units.data(), units.size());
    }

    void addObject(Parcel& request) {
        mOffsets.push_back(request.dataPosition() + (mInput.below(16) == 0 ? mInput.number<std::uint8_t>() : 0));
        flat_binder_object object{};
        object.hdr.type = mInput.below(8) != 0 ? std::uint32_t{BINDER_TYPE_HANDLE} : mInput.number<std::uint32_t>();
        object.handle = mInput.number<std::uint8_t>() % 4;
        request.write(&object, sizeof object);
    }

    void addBytes(Parcel& request) {
        const Bytes bytes = mInput.block();
        request.write(bytes.data(), bytes.size());
    }

    Input& mInput;
    std::vector<binder_size_t> mOffsets;
};

class Session {
public:
    Session(Input& input, test::FakeDriver& driver)
        : mInput(input), mDriver(driver), mRegistry(new servicemanager::Manager(Driver::binder(), {kRegistrar})) {}

    void run() {
        while (!mInput.isEmpty()) {
            if (mInput.below(4) == 0) {
                die();
            } else {
                ask();
            }
        }
        waitUntilDeathsAreTold(mDriver);
    }

private:
    void ask() {
        const auto code = static_cast<std::uint32_t>(mInput.below(11));
        const android::CallerIdentity identity({12, kCallers[mInput.below(kCallers.size())]});
        // The process of a callback is alive when it is told, or not.
        mDriver.say({test::command(mInput.below(4) != 0 ? BR_TRANSACTION_COMPLETE : BR_DEAD_REPLY)});
        Parcel request;
        RequestMaker(mInput).fill(request);
        Parcel reply;
        mRegistry->transact(code, request, &reply);
        touch(reply.data(), reply.dataSize());
        for (const test::Command& sent : mDriver.takeSent()) {
            if (sent.code == BC_REQUEST_DEATH_NOTIFICATION) {
                // A copy, since what is packed has no address.
                const binder_uintptr_t cookie = sent.as<binder_handle_cookie>().cookie;
                mCookies.push_back(cookie);
            }
        }
    }

    void die() {
        const std::size_t which = mInput.below(8);
        Driver::binder().died(which < mCookies.size() ? mCookies[which] : which);
    }

    Input& mInput;
    test::FakeDriver& mDriver;
    const android::sp<android::BBinder> mRegistry;
    std::vector<binder_uintptr_t> mCookies;
};

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelutv::fuzz;
    Input input(data, size);
    Driver::binder();
    Session(input, Driver::renew()).run();
    return 0;
}
