#pragma once

#include <cstddef>

namespace kelutv::interposition {

/** Run on the threads that deliver what the process is told, several at once, before the library gets it; must not
 * throw. */
struct NoticeObserver {
    void (*event)(unsigned int event, const void* payload, std::size_t length) = nullptr;
    void (*loss)() = nullptr;
};

/** To be called once, before the library connects. */
void setNoticeObserver(const NoticeObserver& observer);

} // namespace kelutv::interposition
