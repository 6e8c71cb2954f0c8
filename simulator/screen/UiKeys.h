#pragma once

#include "simulator/screen/UiView.h"

#include <optional>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** What a key of the keyboard stands for. */
enum class UiAction {
    Leave,
    ShowKeys,
    LouderVolume,
    LowerVolume,
    Mute,
    NextSource,
    PreviousSource,
    Plug,
    Power,
    /** A key of the remote control that the television itself leaves to applications. */
    RemoteKey,
};

struct UiKey {
    UiAction action;
    /** Of a remote key: its code. */
    std::int32_t code;
};

/** The keys in what a terminal has sent, which is taken; bytes that are no key are left out. */
std::vector<UiKey> keysIn(const std::string& bytes);

/** The line for the control channel that does what the key stands for; none when it does nothing to the television. */
std::optional<std::string> lineFor(const UiKey& key, const UiView& view);

/** What the keys do, a line for each group of them. */
std::vector<std::string> keyHelp();

} // namespace kelutv::simulator
