#include "ManagerTest.h"

#include "droid/CallerIdentity.h"
#include "droid/ParcelObjects.h"
#include "servicemanager/Manager.h"

#include <set>

namespace kelutv::test {

using android::NO_ERROR;
using android::Parcel;
using android::String16;

namespace {

std::u16string unitsOf(const std::string& text) { return {text.begin(), text.end()}; }

int32_t wordAt(const Bytes& bytes, size_t at) {
    int32_t word = 0;
    std::memcpy(&word, bytes.data() + at, sizeof(word));
    return word;
}

} // namespace

ManagerTest::ManagerTest(int ofLevel)
    : level(ofLevel), manager(new servicemanager::Manager(binder, std::set<uid_t>{0, kSystem})) {}

Bytes ManagerTest::objectOf(uint32_t handle) {
    flat_binder_object object{};
    object.hdr.type = BINDER_TYPE_HANDLE;
    object.handle = handle;
    const auto* const bytes = reinterpret_cast<const uint8_t*>(&object);
    return {bytes, bytes + sizeof(object)};
}

ManagerTest::Answered ManagerTest::ask(uint32_t code, const Bytes& content, uid_t caller, size_t object) {
    Parcel data;
    data.setData(content.data(), content.size());
    if (object != kNoObject) {
        const binder_size_t offset = object;
        android::ParcelObjects::note(&data, reinterpret_cast<const uint8_t*>(&offset), sizeof(offset));
    }
    const android::CallerIdentity identity({12, caller});
    Parcel reply;
    const android::status_t status = manager->transact(code, data, &reply);
    const auto* const objects = android::ParcelObjects::offsetsOf(reply);
    return {status, Bytes(reply.data(), reply.data() + reply.dataSize()),
            objects == nullptr ? std::vector<binder_size_t>() : *objects};
}

int ManagerTest::add(const std::string& name, uint32_t handle, const Added& added) {
    Wire wire = request().str16(unitsOf(name).c_str());
    const size_t object = wire.bytes().size();
    const Bytes flat = objectOf(handle);
    wire.raw(flat.data(), flat.size());
    if (level == 30) {
        wire.i32(added.stability);
    }
    wire.i32(added.allowIsolated ? 1 : 0).i32(added.priority);
    return outcomeOf(ask(kAdd, wire.bytes(), added.by, object));
}

int ManagerTest::outcomeOf(const Answered& answered) const {
    if (answered.status != NO_ERROR) {
        return answered.bytes.empty() ? answered.status : kMalformed;
    }
    if (answered.bytes == replyOf({0})) {
        return 0;
    }
    // An exception has an empty message and no stack.
    const bool exception =
        level == 30 && answered.bytes == replyOf({wordAt(answered.bytes, 0), 0, 0, 0}) && answered.objects.empty();
    return exception ? wordAt(answered.bytes, 0) : kMalformed;
}

uint32_t ManagerTest::found(const std::string& name, uid_t caller, uint32_t code) {
    const Answered answered = ask(code, request().str16(unitsOf(name).c_str()).bytes(), caller);
    EXPECT_EQ(answered.status, NO_ERROR);
    if (answered.objects.empty()) {
        // Levels 28 and 29 have a word where there is no object; level 30 a null object without stability.
        const Bytes none =
            level == 30 ? replyOf({0, static_cast<int32_t>(BINDER_TYPE_BINDER), 0, 0, 0, 0, 0, 0}) : replyOf({0});
        EXPECT_EQ(hex(answered.bytes), hex(none));
        return 0;
    }
    const size_t at = level == 30 ? 4 : 0;
    EXPECT_EQ(answered.objects, std::vector<binder_size_t>{at});
    EXPECT_EQ(answered.bytes.size(), at + sizeof(flat_binder_object) + at);
    if (level == 30) {
        EXPECT_EQ(wordAt(answered.bytes, 0), 0);
    }
    flat_binder_object object{};
    std::memcpy(&object, answered.bytes.data() + at, sizeof(object));
    EXPECT_EQ(uint32_t{object.hdr.type}, uint32_t{BINDER_TYPE_HANDLE});
    const uint32_t handle = object.handle;
    return handle;
}

std::string ManagerTest::listed(int32_t priorities) {
    std::string names;
    Parcel answer;
    const auto append = [&] {
        const String16 name = answer.readString16();
        names += (names.empty() ? "" : " ") + std::string(name.string(), name.string() + name.size());
    };
    if (level == 30) {
        const Answered answered = ask(kList, request().i32(priorities).bytes());
        answer.setData(answered.bytes.data(), answered.bytes.size());
        EXPECT_EQ(answer.readInt32(), 0);
        for (int32_t left = answer.readInt32(); left > 0; --left) {
            append();
        }
        EXPECT_EQ(answer.dataAvail(), 0u);
        return names;
    }
    for (int32_t index = 0;; ++index) {
        const Answered answered = ask(kList, request().i32(index).i32(priorities).bytes());
        if (answered.status != NO_ERROR) {
            EXPECT_EQ(answered.status, -1);
            return names;
        }
        answer.setData(answered.bytes.data(), answered.bytes.size());
        append();
    }
}

binder_uintptr_t ManagerTest::cookieOf(uint32_t handle) {
    binder_uintptr_t cookie = 0;
    for (const Command& sent : driver.takeSent()) {
        const auto asked = sent.as<binder_handle_cookie>();
        cookie = sent.code == BC_REQUEST_DEATH_NOTIFICATION && asked.handle == handle ? asked.cookie : cookie;
    }
    return cookie;
}

} // namespace kelutv::test
