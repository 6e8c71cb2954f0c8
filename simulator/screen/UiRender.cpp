#include "simulator/screen/UiRender.h"

#include "simulator/screen/UiKeys.h"

#include <algorithm>
#include <utility>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kLabelWidth = 10;
constexpr std::size_t kBarWidth = 25;
constexpr std::size_t kFrameOfBar = 2;
constexpr std::size_t kBlockWidth = 8;
constexpr std::int32_t kFullVolume = 100;
constexpr std::size_t kMostFaults = 4;
constexpr char kPattern[] = "Pattern   ";
constexpr char kTitle[] = "kelutv-simulator";
constexpr char kPlain[] = "\x1b[0m";
constexpr char kBold[] = "\x1b[1m";
constexpr char kDim[] = "\x1b[2m";

using Lines = std::vector<std::string>;

/** A row that is put together from pieces and cut at the right edge. */
class RowBuilder {
public:
    RowBuilder(std::size_t width, bool color) : mLeft(width), mColor(color) {}

    RowBuilder& add(const std::string& text, const std::string& style = "") {
        const bool styled = mColor && !style.empty() && mLeft > 0;
        mRow += styled ? style : "";
        for (const char character : text.substr(0, mLeft)) {
            mRow += character >= ' ' && character <= '~' ? character : '?';
        }
        mLeft -= std::min(mLeft, text.size());
        mRow += styled ? kPlain : "";
        return *this;
    }

    std::string take() { return std::move(mRow); }

private:
    std::string mRow;
    std::size_t mLeft;
    const bool mColor;
};

/** The text in rows of this width, broken at blanks where there are any. */
Lines wrapped(const std::string& text, std::size_t width) {
    Lines rows;
    std::size_t at = 0;
    while (width > 0 && text.size() - at > width) {
        const std::size_t blank = text.rfind(' ', at + width);
        const bool isBroken = blank != std::string::npos && blank > at;
        rows.push_back(text.substr(at, isBroken ? blank - at : width));
        at = isBroken ? blank + 1 : at + width;
    }
    rows.push_back(text.substr(at));
    return rows;
}

std::string joined(const Lines& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += (all.empty() ? "" : ", ") + text;
    }
    return all.empty() ? "none" : all;
}

std::string inputText(const UiInput& input) {
    return input.name + (!input.isPlugged ? " (unplugged)" : !input.hasSignal ? " (no signal)" : "");
}

std::string background(const UiColor& color) {
    return "\x1b[48;2;" + std::to_string(color.red) + ';' + std::to_string(color.green) + ';' +
           std::to_string(color.blue) + 'm';
}

std::string volumeBar(std::int32_t volume, std::size_t width) {
    const std::int32_t level = std::clamp(volume, 0, kFullVolume);
    const auto filled = static_cast<std::size_t>(level) * width / kFullVolume;
    return '[' + std::string(filled, '#') + std::string(width - filled, '-') + ']';
}

class Screen {
public:
    Screen(const UiView& view, UiSize size, bool color) : mView(view), mSize(size), mColor(color) {}

    Lines rows() {
        addTitle();
        if (mView.showsKeys) {
            addLatest("Keys", keyHelp(), rowsLeft());
        } else {
            addTelevision();
            addFaults();
            const std::size_t left = rowsLeft();
            addLatest("Commands", mView.commands, left - left / 2);
            addLatest("Events", mView.events, left / 2);
        }
        mRows.resize(std::min(mRows.size(), mSize.rows));
        return std::move(mRows);
    }

private:
    std::size_t rowsLeft() const { return mSize.rows > mRows.size() ? mSize.rows - mRows.size() : 0; }

    RowBuilder row() const { return RowBuilder(mSize.columns, mColor); }

    void addTitle() {
        const std::string hint = mView.hasKeys ? "  q leaves, ? shows keys" : "  Ctrl-C leaves";
        mRows.push_back(row().add(kTitle, kBold).add(hint, kDim).take());
    }

    void addTelevision() {
        addField("Power", mView.power);
        addField("Source", mView.source);
        addField("Signal", mView.signal + (mView.signal == "none" ? "" : ", " + mView.streamType));
        addField("Picture", mView.pictureMode);
        addVolume();
        addPattern();
        addField("Hotel", mView.hotel);
        Lines inputs;
        for (const UiInput& input : mView.inputs) {
            inputs.push_back(inputText(input));
        }
        addField("Inputs", joined(inputs));
        addField("CEC", joined(mView.devices));
    }

    /** The value stands behind the label, and goes on below itself. */
    void addField(const std::string& label, const std::string& value) {
        std::string begin = label;
        for (const std::string& part : wrapped(value, widthOfValues())) {
            begin.resize(kLabelWidth, ' ');
            mRows.push_back(row().add(begin, kDim).add(part).take());
            begin.clear();
        }
    }

    std::size_t widthOfValues() const { return mSize.columns > kLabelWidth ? mSize.columns - kLabelWidth : 1; }

    void addVolume() {
        const std::string number = ' ' + std::to_string(mView.volume) + (mView.muted ? " mute" : "");
        const std::size_t room = widthOfValues() - std::min(widthOfValues(), number.size() + kFrameOfBar);
        addField("Volume", volumeBar(mView.volume, std::min(room, kBarWidth)) + number);
    }

    void addPattern() {
        if (!mView.pattern) {
            addField("Pattern", "none");
            return;
        }
        const UiColor& color = *mView.pattern;
        const std::string numbers = "red " + std::to_string(color.red) + ", green " + std::to_string(color.green) +
                                    ", blue " + std::to_string(color.blue);
        const std::size_t room = widthOfValues() - std::min(widthOfValues(), numbers.size() + 1);
        if (!mColor || room == 0) {
            addField("Pattern", numbers);
            return;
        }
        const std::string block(std::min(room, kBlockWidth), ' ');
        mRows.push_back(row().add(kPattern, kDim).add(block, background(color)).add(" ").add(numbers).take());
    }

    void addFaults() {
        const std::size_t shown = std::min(mView.faults.size(), kMostFaults);
        for (std::size_t i = 0; i < shown; ++i) {
            addField(i == 0 ? "Faults" : "", mView.faults[i]);
        }
        if (shown < mView.faults.size()) {
            addField("", "and " + std::to_string(mView.faults.size() - shown) + " more");
        }
    }

    /** A heading and the latest lines, in this many rows. */
    void addLatest(const std::string& heading, const Lines& lines, std::size_t rows) {
        if (rows == 0) {
            return;
        }
        mRows.push_back(row().add(heading, kBold).take());
        const Lines shown = latest(lines, rows - 1);
        for (const std::string& line : shown) {
            mRows.push_back(row().add(line).take());
        }
        mRows.resize(mRows.size() + rows - 1 - shown.size());
    }

    /** As many of the last lines as fit wholly; of a last one that does not fit the beginning. */
    Lines latest(const Lines& lines, std::size_t rows) const {
        Lines shown;
        for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
            Lines parts = wrapped(*line, mSize.columns);
            if (shown.empty()) {
                parts.resize(std::min(parts.size(), rows));
            }
            if (shown.size() + parts.size() > rows) {
                break;
            }
            shown.insert(shown.begin(), parts.begin(), parts.end());
        }
        return shown;
    }

    const UiView& mView;
    const UiSize mSize;
    const bool mColor;
    Lines mRows;
};

} // namespace

std::vector<std::string> render(const UiView& view, UiSize size, bool color) {
    return Screen(view, size, color).rows();
}

} // namespace kelutv::simulator
