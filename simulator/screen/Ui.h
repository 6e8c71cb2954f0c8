#pragma once

#include "simulator/screen/UiKeyboard.h"
#include "simulator/screen/UiTerminal.h"
#include "simulator/screen/UiView.h"
#include "simulator/trace/Watcher.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace kelutv::simulator {

/** Draws the television in a terminal, in a thread of its own, whenever something changes. */
class Ui : public Watcher {
public:
    /** What a key asks for. */
    struct Orders {
        /** Carries out a line of the control channel. */
        std::function<void(const std::string& line)> obey;
        /** Ends the program. */
        std::function<void()> leave;
    };

    /** @param hasKeys whether the keys of the terminal are those of the television */
    Ui(int terminal, bool color, bool hasKeys) : mTerminal(terminal), mColor(color), mHasKeys(hasKeys) {}
    ~Ui() override;

    /** Takes the terminal over. */
    void start(const Orders& orders);

    /** Gives the terminal back as it was. */
    void stop();

    /** Gives the terminal back until `enter`. */
    void leave() { leaveTerminal(); }

    /** Takes the terminal over again and draws everything anew. */
    void enter();

    /** The terminal has another size. */
    void resized() { markChanged(); }

    /** Shows a line among the events. */
    void note(const std::string& line);

    void served(const Served& served) override;
    void published(const PublishedEvent& event) override;
    void faulted(pid_t caller, const wire::Request& request, const FaultRule& fault) override;
    void settled(const Television& television) override;
    void exiting() override;

private:
    void leaveTerminal();
    void takeKey(const UiKey& key);
    void drawChanges();
    bool drawChange();
    /** False when there is nothing more to draw. */
    bool waitForChange(UiView& view);
    void markChanged();
    void addLine(std::vector<std::string> UiView::*lines, const std::string& line);

    std::mutex mMutex;
    std::condition_variable mNews;
    UiView mView;
    bool mChanged = false;
    bool mStopping = false;

    /** Held while the terminal is written to. */
    std::mutex mTerminalMutex;
    UiTerminal mTerminal;
    const bool mColor;
    const bool mHasKeys;
    std::thread mThread;
    Orders mOrders;
    std::unique_ptr<UiKeyboard> mKeyboard;
};

} // namespace kelutv::simulator
