#pragma once

#include "simulator/television/PublishedEvent.h"

#include <string>
#include <vector>

namespace kelutv::simulator {

/** The VBI data service: delivers while it is initialised and open and a client is registered. Not synchronised. */
class Teletext {
public:
    /** A kind of data; others than teletext come from the control channel only. */
    static constexpr unsigned int kTeletextPacket = 1;
    static constexpr unsigned int kLastType = 0xFFFF;

    explicit Teletext(PublishedEvents& events) : mEvents(events) {}

    void initialise(bool on) { change(mInitialised, on); }
    void open(bool on) { change(mOpen, on); }
    void registerClient(bool on) { change(mRegistered, on); }

    /** Sends one block of data to the client; false when the service does not deliver. */
    bool deliver(unsigned int type, const std::string& data);

private:
    bool delivers() const { return mInitialised && mOpen && mRegistered; }
    void change(bool& flag, bool on);

    bool mInitialised = false;
    bool mOpen = false;
    bool mRegistered = false;
    PublishedEvents& mEvents;
};

/** The packets of page 100, which greets whoever starts to receive: 42 bytes each, from address to text. */
std::vector<std::string> demoPage();

} // namespace kelutv::simulator
