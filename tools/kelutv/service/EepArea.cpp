#include "tools/kelutv/service/EepArea.h"

#include "tools/kelutv/service/Collector.h"
#include "tools/kelutv/service/ReplyCheck.h"
#include "tools/kelutv/service/ServiceLink.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <kelutv/KeluEEP.h>
#include <kelutv/SystemSetting.h>

#include <strings.h>

#include <cstdio>
#include <functional>
#include <optional>

namespace kelutv::tool {

namespace {

using GuardedRead = int (CKeluEEP::*)(int, int, int*);
using GuardedWrite = int (CKeluEEP::*)(int, int*, int);
using PlainBlock = int (SystemSetting::*)(int, int*, int);

template <GuardedRead read> int readGuarded(int address, int length, int* buffer) {
    return (CKeluEEP::instance()->*read)(address, length, buffer);
}

template <GuardedWrite write> int writeGuarded(int address, int length, int* bytes) {
    return (CKeluEEP::instance()->*write)(address, bytes, length);
}

template <PlainBlock operation> int plain(int address, int length, int* bytes) {
    return (SystemSetting::instance()->*operation)(address, bytes, length);
}

int commitGuarded() { return CKeluEEP::instance()->SetFlashEepFlush(); }

int commitFlash() { return SystemSetting::instance()->setFlashEepFlush(); }

template <GuardedRead read, GuardedWrite write>
EepArea guarded(const char* name, const char* meaning, int first, int last) {
    return {name, meaning, first, last, readGuarded<read>, writeGuarded<write>, commitGuarded};
}

constexpr int kLastAddress = 0xFFFF;

/** Makes a call of the library, which is to give 0. @throws LinkError or ServiceError, which begin with what failed */
void call(const std::string& failing, const std::function<int()>& make) {
    requireService();
    std::vector<interposition::Transaction> transactions;
    int result = 0;
    {
        const Collector collector(transactions);
        result = make();
    }
    requireAnswers(failing, transactions);
    if (const std::optional<ReplyFailure> failure = failureIn(transactions, false)) {
        throw ServiceError(failing + ": " + failure->text);
    }
    if (result != 0) {
        throw ServiceError(failing);
    }
}

} // namespace

const std::vector<EepArea>& eepAreas() {
    using Eep = CKeluEEP;
    using System = SystemSetting;
    static const auto* const areas = new std::vector<EepArea>{
        guarded<&Eep::GetTVFlashEepMulti, &Eep::SetTVFlashEepMulti>("tv", "the television's own area", 0x8A00, 0x8BFC),
        guarded<&Eep::GetNetworkFlashEepMulti, &Eep::SetNetworkFlashEepMulti>("network", "the network area", 0x8C00,
                                                                              0x8DFC),
        guarded<&Eep::GetAPPFlashEepMulti, &Eep::SetAPPFlashEepMulti>("app", "the applications' area", 0x8E00, 0x8FFC),
        guarded<&Eep::GetBTFlashEepMulti, &Eep::SetBTFlashEepMulti>("bt", "the Bluetooth area", 0x9000, 0x91FC),
        guarded<&Eep::GetATFlashEepMulti, &Eep::SetATFlashEepMulti>("at", "the AT area", 0xA400, 0xA5FC),
        {"flash", "the whole flash EEPROM", 0, kLastAddress, plain<&System::getFlashEepMulti>,
         plain<&System::setFlashEepMulti>, commitFlash},
        {"eep", "the EEPROM", 0, kLastAddress, plain<&System::getEepMulti>, plain<&System::setEepMulti>, nullptr},
    };
    return *areas;
}

const EepArea& eepAreaNamed(const std::string& name) {
    std::vector<std::string> names;
    for (const EepArea& area : eepAreas()) {
        if (::strcasecmp(area.name, name.c_str()) == 0) {
            return area;
        }
        names.emplace_back(area.name);
    }
    throw UsageError("no area is called " + wire::shown(name) + wire::nearestHint(name, names) +
                     "; there are tv, network, app, bt, at, flash and eep");
}

std::string addressText(int address) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%04X", static_cast<unsigned int>(address));
    return text;
}

std::string bytesText(std::size_t count) { return std::to_string(count) + (count == 1 ? " byte" : " bytes"); }

void EepArea::requireBlock(int address, int length) const {
    if (address < first || address > last) {
        throw UsageError("address " + addressText(address) + " is outside the area " + name + ", which goes from " +
                         addressText(first) + " to " + addressText(last));
    }
    if (length < 1 || length > last - address + 1) {
        throw UsageError(std::to_string(length) + " bytes from " + addressText(address) +
                         " on do not fit into the area " + name + ": from there to its end at " + addressText(last) +
                         " it has 1 to " + std::to_string(last - address + 1));
    }
}

Bytes EepArea::read(int address, int length) const {
    std::vector<int> values(static_cast<std::size_t>(length));
    call("cannot read " + bytesText(values.size()) + " from " + addressText(address) + " on",
         [&] { return readBlock(address, length, values.data()); });
    Bytes bytes;
    for (const int value : values) {
        bytes.push_back(static_cast<std::uint8_t>(value));
    }
    return bytes;
}

void EepArea::write(int address, const Bytes& bytes) const {
    std::vector<int> values(bytes.begin(), bytes.end());
    call("cannot write " + bytesText(bytes.size()) + " from " + addressText(address) + " on",
         [&] { return writeBlock(address, static_cast<int>(values.size()), values.data()); });
}

void EepArea::flush() const {
    if (commit != nullptr) {
        call("the bytes are written but not flushed", commit);
    }
}

} // namespace kelutv::tool
