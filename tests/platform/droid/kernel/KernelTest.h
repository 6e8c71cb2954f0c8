#pragma once

#include "FakeDriver.h"
#include "droid/kernel/KernelBinder.h"
#include "droid/kernel/KernelConversation.h"

#include <binder/Parcel.h>

#include <gtest/gtest.h>

#include <memory>

namespace kelutv::test {

/** The runtime's use of a driver that the test plays. */
class KernelTest : public ::testing::Test {
protected:
    KernelTest() : KernelTest(std::make_unique<FakeDriver>()) {}

    android::status_t call(uint32_t code, const Bytes& request, android::Parcel* reply, uint32_t flags = 0) {
        android::Parcel data;
        data.setData(request.data(), request.size());
        return android::KernelConversation(binder).call(kHandle, code, data, reply, flags);
    }

    static constexpr uint32_t kHandle = 7;

    FakeDriver& driver;
    android::KernelBinder& binder;

private:
    // Threads of the runtime go on using both, so they stay.
    explicit KernelTest(std::unique_ptr<FakeDriver> fake)
        : driver(*fake), binder(*kept().emplace_back(new android::KernelBinder(std::move(fake)))) {}

    static std::vector<std::unique_ptr<android::KernelBinder>>& kept() {
        static auto* const all = new std::vector<std::unique_ptr<android::KernelBinder>>;
        return *all;
    }
};

} // namespace kelutv::test
