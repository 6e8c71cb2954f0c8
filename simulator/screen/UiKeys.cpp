#include "simulator/screen/UiKeys.h"

#include <kelutv/system_types.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace kelutv::simulator {

namespace {

constexpr std::int32_t kLeastVolume = 0;
constexpr std::int32_t kMostVolume = 100;

struct Binding {
    /** As a terminal sends it. */
    const char* bytes;
    UiKey key;
};

constexpr UiKey remoteKey(std::int32_t code) { return {UiAction::RemoteKey, code}; }

constexpr Binding kBindings[] = {
    {"q", {UiAction::Leave, 0}},
    {"?", {UiAction::ShowKeys, 0}},
    {"+", {UiAction::LouderVolume, 0}},
    {"=", {UiAction::LouderVolume, 0}},
    {"-", {UiAction::LowerVolume, 0}},
    {"m", {UiAction::Mute, 0}},
    {"s", {UiAction::NextSource, 0}},
    {"S", {UiAction::PreviousSource, 0}},
    {"u", {UiAction::Plug, 0}},
    {"p", {UiAction::Power, 0}},
    {"\x1b[A", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_UP)},
    {"\x1bOA", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_UP)},
    {"\x1b[B", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_DOWN)},
    {"\x1bOB", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_DOWN)},
    {"\x1b[C", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_RIGHT)},
    {"\x1bOC", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_RIGHT)},
    {"\x1b[D", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_LEFT)},
    {"\x1bOD", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_LEFT)},
    {"\r", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_CENTER)},
    {"\n", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_CENTER)},
    {"\x7f", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_BACK)},
    {"\b", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_BACK)},
    {"h", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_HOME)},
    {"M", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_MENU)},
    {"0", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_0)},
    {"1", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_1)},
    {"2", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_2)},
    {"3", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_3)},
    {"4", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_4)},
    {"5", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_5)},
    {"6", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_6)},
    {"7", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_7)},
    {"8", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_8)},
    {"9", remoteKey(KELU_TV_LINUX_KEYCODE_KELU_KEY_9)},
};

const Binding* bindingAt(const std::string& bytes, std::size_t at) {
    const auto* const found = std::find_if(std::begin(kBindings), std::end(kBindings), [&](const Binding& binding) {
        return bytes.compare(at, std::string(binding.bytes).size(), binding.bytes) == 0;
    });
    return found != std::end(kBindings) ? found : nullptr;
}

/** The place behind a sequence that begins with an escape character and is no key here. */
std::size_t endOfSequence(const std::string& bytes, std::size_t at) {
    if (bytes[at] != '\x1b' || at + 1 == bytes.size()) {
        return at + 1;
    }
    const bool isLong = bytes[at + 1] == '[' || bytes[at + 1] == 'O';
    const std::size_t end = isLong ? bytes.find_first_not_of("0123456789;<=>?", at + 2) : at + 1;
    return end == std::string::npos ? bytes.size() : end + 1;
}

std::string setVolume(const UiView& view, std::int32_t change) {
    const std::int32_t volume = std::clamp(view.volume + change, kLeastVolume, kMostVolume);
    return "set audio.volume[0] = " + std::to_string(volume);
}

/** The next of the inputs, or the one before, after the last the first again. */
std::optional<std::string> selectInput(const UiView& view, bool isNext) {
    const std::vector<UiInput>& inputs = view.inputs;
    if (inputs.empty()) {
        return std::nullopt;
    }
    const auto current =
        std::find_if(inputs.begin(), inputs.end(), [](const UiInput& input) { return input.isCurrent; });
    const std::size_t place = current == inputs.end() ? 0 : static_cast<std::size_t>(current - inputs.begin());
    const std::size_t chosen = (place + (isNext ? 1 : inputs.size() - 1)) % inputs.size();
    return "set sourcemanager.curSource[0] = " + std::to_string(inputs[chosen].id);
}

std::optional<std::string> plugInput(const UiView& view) {
    for (const UiInput& input : view.inputs) {
        if (input.isCurrent) {
            return (input.isPlugged ? "unplug " : "plug ") + input.fullName;
        }
    }
    return std::nullopt;
}

} // namespace

std::vector<UiKey> keysIn(const std::string& bytes) {
    std::vector<UiKey> keys;
    for (std::size_t at = 0; at < bytes.size();) {
        if (const Binding* const binding = bindingAt(bytes, at)) {
            keys.push_back(binding->key);
            at += std::string(binding->bytes).size();
        } else {
            at = endOfSequence(bytes, at);
        }
    }
    return keys;
}

std::optional<std::string> lineFor(const UiKey& key, const UiView& view) {
    switch (key.action) {
    case UiAction::LouderVolume:
        return setVolume(view, 1);
    case UiAction::LowerVolume:
        return setVolume(view, -1);
    case UiAction::Mute:
        return std::string("set audio.mute[0] = ") + (view.muted ? "0" : "1");
    case UiAction::NextSource:
        return selectInput(view, true);
    case UiAction::PreviousSource:
        return selectInput(view, false);
    case UiAction::Plug:
        return plugInput(view);
    case UiAction::Power:
        return view.isOn ? "power suspended" : "power on";
    case UiAction::RemoteKey:
        return "key " + std::to_string(key.code);
    case UiAction::Leave:
    case UiAction::ShowKeys:
        break;
    }
    return std::nullopt;
}

std::vector<std::string> keyHelp() {
    return {
        "+ -  volume",
        "m    mute",
        "s S  next source, or the one before",
        "u    unplug the source, or plug it in",
        "p    power",
        "arrows, Enter, Backspace, h (home), M (menu), 0 to 9: keys for the application",
        "?    the television again",
        "q    leave, as Ctrl-C does",
    };
}

} // namespace kelutv::simulator
