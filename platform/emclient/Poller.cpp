#include "Poller.h"

#include <poll.h>

#include <cerrno>

namespace keluem {

namespace {

constexpr int kPauseMs = 50;

} // namespace

int Poller::open() {
    if (!mEpoll) {
        mEpoll = kq::UniqueFd(::epoll_create1(EPOLL_CLOEXEC));
    }
    return mEpoll ? 0 : -errno;
}

bool Poller::add(int fd, std::uint32_t events, void* owner) { return control(EPOLL_CTL_ADD, fd, events, owner); }

void Poller::change(int fd, std::uint32_t events, void* owner) { control(EPOLL_CTL_MOD, fd, events, owner); }

void Poller::remove(int fd) { control(EPOLL_CTL_DEL, fd, 0, nullptr); }

bool Poller::control(int operation, int fd, std::uint32_t events, void* owner) {
    epoll_event event{};
    event.events = events;
    event.data.ptr = owner;
    return ::epoll_ctl(mEpoll.get(), operation, fd, &event) == 0;
}

std::size_t Poller::ready(epoll_event* events, std::size_t capacity, int timeoutMs) const {
    const int count = ::epoll_wait(mEpoll.get(), events, static_cast<int>(capacity), timeoutMs);
    if (count < 0 && errno != EINTR && timeoutMs != 0) {
        ::poll(nullptr, 0, kPauseMs); // whatever fails here would fail again at once
    }
    return count < 0 ? 0 : static_cast<std::size_t>(count);
}

} // namespace keluem
