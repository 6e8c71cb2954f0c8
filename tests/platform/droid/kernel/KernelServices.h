#pragma once

#include "FakeDriver.h"
#include "droid/kernel/KernelTransport.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace kelutv::test {

/** The calls to a service manager that the test plays. */
class KernelServices : public ::testing::Test {
protected:
    KernelServices() : KernelServices(std::make_unique<FakeDriver>()) {}

    /** The manager's next answer. */
    void answer(const Bytes& content, const std::vector<binder_size_t>& offsets = {}) {
        driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, driver.message(content, offsets))});
    }
    void answerStatus(int32_t status) {
        binder_transaction_data message = driver.message(replyOf({status}));
        message.flags = TF_STATUS_CODE;
        driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, message)});
    }

    static Bytes object(uint32_t type, uint64_t number) {
        flat_binder_object flat{};
        flat.hdr.type = type;
        flat.binder = number;
        flat.cookie = number;
        const auto* const bytes = reinterpret_cast<const uint8_t*>(&flat);
        return Bytes(bytes, bytes + sizeof(flat));
    }

    FakeDriver& driver;
    android::KernelTransport& transport;

private:
    explicit KernelServices(std::unique_ptr<FakeDriver> fake)
        : driver(*fake), transport(*kept().emplace_back(new android::KernelTransport(std::move(fake)))) {}

    static std::vector<std::unique_ptr<android::KernelTransport>>& kept() {
        static auto* const all = new std::vector<std::unique_ptr<android::KernelTransport>>;
        return *all;
    }
};

} // namespace kelutv::test
