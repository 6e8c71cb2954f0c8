#include "foreign/platform/driver/Commands.h"

#include <linux/android/binder.h>

#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace foreign {

namespace {

/** A signal ends an exchange early; it goes on where it stood. */
bool exchange(int device, binder_write_read& both) {
    int result = 0;
    do {
        result = ::ioctl(device, BINDER_WRITE_READ, &both);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

/** What one reading gave, in order. */
std::vector<Notice> readNotices(int device) {
    std::array<std::uint8_t, 512> bytes{};
    binder_write_read both{};
    both.read_size = bytes.size();
    both.read_buffer = reinterpret_cast<std::uintptr_t>(bytes.data());
    if (!exchange(device, both)) {
        return {Notice{}};
    }
    std::vector<Notice> notices;
    for (std::size_t at = 0; at < both.read_consumed;) {
        Notice notice;
        std::memcpy(&notice.command, bytes.data() + at, sizeof(notice.command));
        const std::size_t length = _IOC_SIZE(notice.command);
        at += sizeof(notice.command);
        notice.payload.assign(bytes.data() + at, bytes.data() + at + length);
        at += length;
        notices.push_back(std::move(notice));
    }
    return notices;
}

} // namespace

Commands& Commands::append(const void* bytes, std::size_t length) {
    const auto* const first = static_cast<const std::uint8_t*>(bytes);
    mBytes.insert(mBytes.end(), first, first + length);
    return *this;
}

bool Commands::write(int device) const {
    binder_write_read both{};
    both.write_size = mBytes.size();
    both.write_buffer = reinterpret_cast<std::uintptr_t>(mBytes.data());
    return exchange(device, both);
}

Notice awaitNotice(int device, std::initializer_list<std::uint32_t> wanted) {
    for (;;) {
        for (const Notice& notice : readNotices(device)) {
            if (notice.command == 0 || std::find(wanted.begin(), wanted.end(), notice.command) != wanted.end()) {
                return notice;
            }
        }
    }
}

} // namespace foreign
