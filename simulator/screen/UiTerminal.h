#pragma once

#include "simulator/screen/UiRender.h"

#include <termios.h>

#include <optional>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** A terminal whose alternate screen is drawn to; the terminal is as before once this is destroyed or left. */
class UiTerminal {
public:
    /** Does nothing to the terminal before `enter`. */
    explicit UiTerminal(int descriptor) : mDescriptor(descriptor) {}
    ~UiTerminal() { leave(); }
    UiTerminal(const UiTerminal&) = delete;
    UiTerminal& operator=(const UiTerminal&) = delete;

    void enter();
    void leave();

    int descriptor() const { return mDescriptor; }

    /** 24 rows of 80 characters when the terminal does not say. */
    UiSize size() const;

    /** Replaces what is on the screen; does nothing outside `enter` and `leave`. */
    void draw(const std::vector<std::string>& rows) const;

private:
    void write(const std::string& text) const;
    /** Neither shows what is typed nor waits for whole lines; signals of the keyboard stay. */
    void takeKeyboard();
    void giveKeyboardBack();

    const int mDescriptor;
    bool mEntered = false;
    /** As they were before `enter`. */
    std::optional<termios> mSettings;
};

} // namespace kelutv::simulator
