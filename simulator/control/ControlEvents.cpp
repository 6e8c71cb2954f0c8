// The verbs that publish something: power, key, event and vbi.

#include "simulator/control/ControlActions.h"
#include "simulator/control/ControlValues.h"
#include "simulator/files/File.h"
#include "simulator/television/Power.h"
#include "simulator/television/StateAccess.h"
#include "simulator/text/Numbers.h"
#include "simulator/text/Tokenizer.h"
#include "wire/StateForm.h"
#include "wire/events/EventTable.h"
#include "wire/events/Payload.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <kelutv-simulator/events.h>
#include <kelutv/system_types.h>

#include <keluem/publisher.h>

#include <fcntl.h>

#include <optional>

namespace kelutv::simulator {

namespace {

constexpr char kKeyState[] = "systemsetting.keyEvent";
constexpr std::size_t kLongestVbi = keluem::kMaxPayload - sizeof(std::int32_t);

void useKey(Equipment& equipment, std::int32_t key, std::int32_t happened) {
    const wire::StateKey& state = *wire::findState(kKeyState);
    const wire::StateForm form = wire::formOf(state);
    if (const auto refusal = objectionToSize(equipment.state, state, {key}, {happened})) {
        throw BadLine(refusal->text);
    }
    equipment.state.keep(state, {key}, {happened});
    const std::string name = wire::namesOf(*form.indexes[0].names).shortNameOf(key);
    const std::string what = wire::namesOf(*form.values[0].names).shortNameOf(happened);
    equipment.events.push_back({KELU_SIM_EVENT_KEY_USED, wire::payloadOf({key, happened}),
                                "key " + std::to_string(key) + (name.empty() ? "" : ' ' + name) + ' ' + what});
}

/** @throws BadLine with the event that may be meant, or the modules that are allowed */
unsigned int moduleNamed(const std::string& word, const wire::EventTable& events) {
    try {
        return static_cast<unsigned int>(integerOf(word, wire::namesOf(wire::eventModules()), "event or module"));
    } catch (const BadLine&) {
        const std::string nearest = wire::nearestHint(word, events.names());
        if (nearest.empty()) {
            throw;
        }
        throw BadLine('\'' + wire::shown(word) + "' is not an event or a module" + nearest);
    }
}

/** A number, the name of an event, or a module and what is added to it. */
unsigned int eventNamed(const std::string& word) {
    const wire::EventTable events(wire::simulatedEvents());
    if (const wire::Event* const known = events.named(word)) {
        return known->first;
    }
    const std::size_t plus = word.find('+');
    const std::string offset = plus == std::string::npos ? "0" : word.substr(plus + 1);
    const auto added = int32Of(offset);
    if (!added || *added < 0 || *added > 0xFFFF) {
        throw BadLine("the number added to the module of an event goes from 0 to 65535, not '" + wire::shown(offset) +
                      "'");
    }
    return moduleNamed(word.substr(0, plus), events) + static_cast<unsigned int>(*added);
}

std::string fileContent(const std::string& path) {
    try {
        const File file(path, O_RDONLY | O_NONBLOCK);
        if (!file.isOpen()) {
            failToUse("read", path);
        }
        if (!file.isRegular() || file.size() > keluem::kMaxPayload) {
            throw BadLine(path + " is not a regular file of at most " + std::to_string(keluem::kMaxPayload) + " bytes");
        }
        return file.read(file.size());
    } catch (const BadLine&) {
        throw;
    } catch (const std::runtime_error& error) {
        throw BadLine(error.what());
    }
}

std::string bytesFrom(const Token& token) {
    if (token.raw[0] == '@') {
        return fileContent(Token{token.raw.substr(1)}.text());
    }
    const auto bytes = token.isQuoted() ? token.text() : bytesOf(token.raw);
    if (!bytes) {
        throw BadLine("'" + wire::shown(token.raw) +
                      "' is neither bytes in hexadecimal, nor @FILE, nor a text in quotes");
    }
    return *bytes;
}

std::string payloadFrom(const Tokens& tokens) {
    std::string payload = tokens.size() == 2 ? bytesFrom(tokens[1]) : "";
    if (payload.size() > keluem::kMaxPayload) {
        throw BadLine("the payload of an event has at most " + std::to_string(keluem::kMaxPayload) + " bytes");
    }
    return payload;
}

std::string countOf(const std::string& bytes) {
    return std::to_string(bytes.size()) + (bytes.size() == 1 ? " byte" : " bytes");
}

/** What was before a power state, as far as it is said. */
struct PowerModes {
    std::optional<std::int32_t> lastOff;
    std::optional<std::int32_t> wakeup;
};

/** Those behind the state. */
PowerModes powerModesFrom(const Tokens& tokens) {
    PowerModes modes;
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        const std::string& word = tokens[i].raw;
        const std::size_t equals = word.find('=');
        const std::string field = word.substr(0, equals);
        const auto number = equals == std::string::npos ? std::nullopt : int32Of(word.substr(equals + 1));
        if (!number || (field != "lastPowerOffMode" && field != "wakeupMode")) {
            throw BadLine("power takes a state, lastPowerOffMode=NUMBER and wakeupMode=NUMBER, not '" +
                          wire::shown(word) + "'");
        }
        (field == "wakeupMode" ? modes.wakeup : modes.lastOff) = number;
    }
    return modes;
}

} // namespace

Deed enterPowerState(const Configuration&, const std::string& rest) {
    const Tokens tokens = tokensOf(rest);
    const std::int32_t state =
        integerOf(tokens.empty() ? "" : tokens[0].text(), wire::namesOf(powerStateNames()), "power state");
    if (state < 0 || state > static_cast<std::int32_t>(PowerState::Rebooting)) {
        throw BadLine("power states go from 0 to 5");
    }
    return [state, modes = powerModesFrom(tokens)](Equipment& equipment) {
        Power& power = equipment.power;
        power.enter(static_cast<PowerState>(state));
        power.enter(power.state(), modes.lastOff.value_or(power.lastPowerOffMode()),
                    modes.wakeup.value_or(power.wakeupMode()));
        return "";
    };
}

Deed useKey(const Configuration&, const std::string& rest) {
    const Tokens tokens = tokensOf(rest);
    if (tokens.empty() || tokens.size() > 2) {
        throw BadLine("key takes a key code and, for only one of the two, press or release");
    }
    const wire::StateForm form = wire::formOf(*wire::findState(kKeyState));
    const std::int32_t key = integerOf(tokens[0].text(), wire::namesOf(*form.indexes[0].names), "key code");
    const wire::Names& happenings = wire::namesOf(*form.values[0].names);
    if (tokens.size() == 2) {
        return [key, happened = integerOf(tokens[1].text(), happenings, "use of a key")](Equipment& equipment) {
            useKey(equipment, key, happened);
            return "";
        };
    }
    return [key](Equipment& equipment) {
        useKey(equipment, key, KELU_TV_KPC_EV_KEY_PRESS);
        useKey(equipment, key, KELU_TV_KPC_EV_KEY_RELEASE);
        return "";
    };
}

Deed sendEvent(const Configuration&, const std::string& rest) {
    const Tokens tokens = tokensOf(rest);
    if (tokens.empty() || tokens.size() > 2) {
        throw BadLine("event takes an identifier, and the payload in hexadecimal, as @FILE, or as a text in quotes");
    }
    const unsigned int event = eventNamed(tokens[0].text());
    const std::string payload = payloadFrom(tokens);
    return [published =
                PublishedEvent{event, payload, "from the control channel, " + countOf(payload)}](Equipment& equipment) {
        equipment.events.push_back(published);
        return "";
    };
}

Deed sendVbi(const Configuration&, const std::string& rest) {
    const Tokens tokens = tokensOf(rest);
    const bool complete = tokens.size() == 1 || tokens.size() == 2;
    const std::int32_t type = complete ? int32Of(tokens[0].raw).value_or(0) : 0;
    const auto bytes = bytesOf(tokens.size() == 2 ? tokens[1].raw : "");
    if (type <= 0 || type > std::int32_t{Teletext::kLastType} || !bytes) {
        throw BadLine("vbi takes a type from 1 to 65535 and the data in hexadecimal");
    }
    if (bytes->size() > kLongestVbi) {
        throw BadLine("a VBI block holds at most " + std::to_string(kLongestVbi) + " bytes");
    }
    return [type, block = *bytes](Equipment& equipment) {
        if (!equipment.teletext.deliver(static_cast<unsigned int>(type), block)) {
            throw BadLine("VBI is not initialised, open and registered: no client takes the block");
        }
        return "";
    };
}

} // namespace kelutv::simulator
