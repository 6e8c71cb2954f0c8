#pragma once

#include <kelutv-service/Events.h>
#include <kelutv-service/Reply.h>
#include <kelutv-service/Request.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::service {

/** What is said of a state that is kept. */
struct Setting {
    /** Its name in the catalogue: `audio.volume`. */
    const char* state;
    /** What is read before it is set; nothing for zeros and empty texts. */
    Values initial = {};
    /** Published with its keys and what it holds when that changes; null for none. */
    const char* event = nullptr;
    /** The limits of its numbers; both belong to it. */
    std::int32_t least = INT32_MIN;
    std::int32_t greatest = INT32_MAX;
};

/**
 * Keeps states of the catalogue: what is set under some keys is what is read under the same. Not synchronised.
 *
 * A number of a request that the catalogue has names for must be one of these.
 */
class Settings {
public:
    /** How much clients may set, in bytes: the texts, 16 for each number and text, and 128 for each state and its keys.
     */
    static constexpr std::size_t kMostSet = std::size_t{2} * 1024 * 1024;

    /**
     * @param module whose states it keeps, all of them: `audio`
     * @param settings those with initial values, events or limits
     * @throws std::invalid_argument for a module, a state or an event that the catalogue does not have
     */
    Settings(std::string module, const std::vector<Setting>& settings);

    /** Carries out a request that sets or reads a state of the module; refuses any other. */
    Reply answer(const Request& request, Events& events);

    /** What was set last under these keys, else the initial values. */
    Values read(const std::string& state, const Values& keys) const;

    /** Sets a state whatever its limits, and publishes its event when it changes. */
    void keep(const std::string& state, const Values& keys, const Values& values, Events& events);

    /** Brings all states back to what they hold before they are set. */
    void restore(Events& events);

private:
    using Place = std::pair<std::string, Values>;

    const Setting& settingOf(const std::string& state) const;
    Reply set(const Request& request, Events& events);
    Reply get(const Request& request) const;
    bool hasRoomFor(const Place& place, const Values& values) const;
    void publish(const Place& place, Events& events) const;

    const std::string mModule;
    std::map<std::string, Setting> mSettings;
    std::map<Place, Values> mKept;
    /** Of what is kept, as `kMostSet` counts it. */
    std::size_t mSize = 0;
};

} // namespace kelutv::service
