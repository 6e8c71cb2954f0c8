#include "simulator/screen/Ui.h"

#include "simulator/output/Shortage.h"
#include "simulator/screen/UiRender.h"
#include "simulator/trace/Trace.h"

#include <chrono>
#include <utility>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kMostLines = 200;
/** Longer than any terminal is wide. */
constexpr std::size_t kLongestKeptLine = 1000;
constexpr std::chrono::milliseconds kLeastPause{50};

} // namespace

Ui::~Ui() { stop(); }

void Ui::start(const Orders& orders) {
    mOrders = orders;
    mTerminal.enter();
    mThread = std::thread([this] { drawChanges(); });
    if (mHasKeys) {
        mKeyboard = std::make_unique<UiKeyboard>(mTerminal.descriptor(), [this](const UiKey& key) { takeKey(key); });
    }
}

void Ui::stop() {
    mKeyboard.reset();
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mStopping = true;
    }
    mNews.notify_all();
    if (mThread.joinable()) {
        mThread.join();
    }
    leaveTerminal();
}

void Ui::enter() {
    {
        const std::lock_guard<std::mutex> lock(mTerminalMutex);
        mTerminal.enter();
    }
    markChanged();
}

void Ui::takeKey(const UiKey& key) {
    if (key.action == UiAction::Leave) {
        mOrders.leave();
        return;
    }
    std::optional<std::string> line;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mView.showsKeys = mView.showsKeys != (key.action == UiAction::ShowKeys);
        line = lineFor(key, mView);
    }
    if (line) {
        mOrders.obey(*line);
    }
    markChanged();
}

void Ui::note(const std::string& line) {
    addLine(&UiView::events, line);
    markChanged();
}

void Ui::served(const Served& served) {
    addLine(&UiView::commands, describe(served.caller, served.request, served.reply));
}

void Ui::published(const PublishedEvent& event) { addLine(&UiView::events, describe(event)); }

void Ui::faulted(pid_t caller, const wire::Request& request, const FaultRule& fault) {
    addLine(&UiView::commands, describe(caller, request, fault));
}

void Ui::settled(const Television& television) {
    UiView view = viewOf(television.equipment());
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        view.hasKeys = mHasKeys;
        view.showsKeys = mView.showsKeys;
        view.commands = std::move(mView.commands);
        view.events = std::move(mView.events);
        mView = std::move(view);
    }
    markChanged();
}

void Ui::exiting() { leaveTerminal(); }

void Ui::leaveTerminal() {
    const std::lock_guard<std::mutex> lock(mTerminalMutex);
    mTerminal.leave();
}

void Ui::drawChanges() {
    for (bool isOn = true; isOn;) {
        withMemory([&] { isOn = drawChange(); });
    }
}

/** False when there is nothing more to draw. */
bool Ui::drawChange() {
    UiView view;
    if (!waitForChange(view)) {
        return false;
    }
    const std::lock_guard<std::mutex> lock(mTerminalMutex);
    mTerminal.draw(render(view, mTerminal.size(), mColor));
    return true;
}

bool Ui::waitForChange(UiView& view) {
    std::unique_lock<std::mutex> lock(mMutex);
    mNews.wait_for(lock, kLeastPause, [this] { return mStopping; });
    mNews.wait(lock, [this] { return mStopping || mChanged; });
    mChanged = false;
    view = mView;
    return !mStopping;
}

void Ui::markChanged() {
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mChanged = true;
    }
    mNews.notify_all();
}

void Ui::addLine(std::vector<std::string> UiView::*lines, const std::string& line) {
    const std::lock_guard<std::mutex> lock(mMutex);
    std::vector<std::string>& kept = mView.*lines;
    kept.push_back(line.substr(0, kLongestKeptLine));
    if (kept.size() > kMostLines) {
        kept.erase(kept.begin());
    }
}

} // namespace kelutv::simulator
