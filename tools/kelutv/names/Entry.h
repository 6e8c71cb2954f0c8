#pragma once

#include "tools/kelutv/output/Json.h"
#include "wire/events/EventTable.h"

#include <memory>
#include <string>
#include <vector>

namespace kelutv::tool {

/** A name of the interface beside those of functions, with what is known of what it stands for. */
class Entry {
public:
    explicit Entry(std::string name) : mName(std::move(name)) {}
    virtual ~Entry() = default;
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

    const std::string& name() const { return mName; }

    /** `command`, `item`, `enumeration`, `value`, `record` or `event`. */
    virtual const char* kind() const = 0;

    /** What it is, in a few words. */
    virtual std::string brief() const = 0;

    /** All that is known, in the lines below the brief one. */
    virtual std::vector<std::string> lines() const = 0;

    /** The same as a document, behind `kind` and `name`. */
    virtual void addTo(Json& document) const = 0;

private:
    std::string mName;
};

using Entries = std::vector<std::unique_ptr<Entry>>;

/** Adds every entry of a kind: commands and items; enumerations, their values and records; events. */
void addRequests(Entries& entries);
void addTypes(Entries& entries);
void addEvents(Entries& entries, const wire::EventTable& events);

} // namespace kelutv::tool
