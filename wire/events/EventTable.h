#pragma once

#include "wire/events/Event.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::wire {

/** The events of one television. */
class EventTable {
public:
    /** @param owner of the rows; null when they live as long as the program */
    explicit EventTable(Rows<Event> rows, std::shared_ptr<const void> owner = nullptr)
        : mRows(rows), mOwner(std::move(owner)) {}

    /** Null when no event has this identifier. */
    const Event* find(std::uint32_t identifier) const;

    /** In any case of letters; null when there is none. */
    const Event* named(const std::string& name) const;

    /** All of them, in the order of the table. */
    const Rows<Event>& rows() const { return mRows; }

    /** In the order of the table. */
    std::vector<std::string> names() const;

private:
    Rows<Event> mRows;
    std::shared_ptr<const void> mOwner;
};

/** The enumeration of the modules of the event manager. */
const Enumeration& eventModules();

/** Whether the number is a module of the event manager. */
bool isEventModule(std::uint32_t number);

} // namespace kelutv::wire
