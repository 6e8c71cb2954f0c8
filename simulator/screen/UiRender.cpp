#include "simulator/screen/UiRender.h"

#include <algorithm>
#include <utility>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kLabelWidth = 10;
constexpr std::size_t kBarWidth = 25;
constexpr std::size_t kBlockWidth = 8;
constexpr std::int32_t kFullVolume = 100;
constexpr std::size_t kMostFaults = 4;
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

    RowBuilder& addLabel(const std::string& label) {
        return add(label + std::string(kLabelWidth - std::min(kLabelWidth, label.size()), ' '), kDim);
    }

    std::string take() { return std::move(mRow); }

private:
    std::string mRow;
    std::size_t mLeft;
    const bool mColor;
};

std::string background(const UiColor& color) {
    return "\x1b[48;2;" + std::to_string(color.red) + ';' + std::to_string(color.green) + ';' +
           std::to_string(color.blue) + 'm';
}

std::string volumeBar(std::int32_t volume) {
    const std::int32_t level = std::clamp(volume, 0, kFullVolume);
    const auto filled = static_cast<std::size_t>(level) * kBarWidth / kFullVolume;
    return '[' + std::string(filled, '#') + std::string(kBarWidth - filled, '-') + ']';
}

class Screen {
public:
    Screen(const UiView& view, UiSize size, bool color) : mView(view), mSize(size), mColor(color) {}

    Lines rows() {
        addTelevision();
        addFaults();
        const std::size_t left = mSize.rows > mRows.size() ? mSize.rows - mRows.size() : 0;
        addLatest("Commands", mView.commands, left - left / 2);
        addLatest("Events", mView.events, left / 2);
        mRows.resize(std::min(mRows.size(), mSize.rows));
        return std::move(mRows);
    }

private:
    RowBuilder row() const { return RowBuilder(mSize.columns, mColor); }

    void addTelevision() {
        mRows.push_back(row().add("kelutv-simulator", kBold).take());
        addField("Power", mView.power);
        addField("Source", mView.source);
        addField("Signal", mView.signal + (mView.signal == "none" ? "" : ", " + mView.streamType));
        addField("Picture", mView.pictureMode);
        addField("Volume", volumeBar(mView.volume) + ' ' + std::to_string(mView.volume) + (mView.muted ? " mute" : ""));
        addPattern();
        addField("Hotel", mView.hotel);
    }

    void addField(const std::string& label, const std::string& value) {
        mRows.push_back(row().addLabel(label).add(value).take());
    }

    void addPattern() {
        if (!mView.pattern) {
            addField("Pattern", "none");
            return;
        }
        const UiColor& color = *mView.pattern;
        const std::string numbers = "red " + std::to_string(color.red) + ", green " + std::to_string(color.green) +
                                    ", blue " + std::to_string(color.blue);
        const std::string block = mColor ? std::string(kBlockWidth, ' ') : "";
        mRows.push_back(
            row().addLabel("Pattern").add(block, background(color)).add(mColor ? " " : "").add(numbers).take());
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
    void addLatest(const std::string& heading, const std::vector<std::string>& lines, std::size_t rows) {
        if (rows == 0) {
            return;
        }
        mRows.push_back(row().add(heading, kBold).take());
        const std::size_t shown = std::min(lines.size(), rows - 1);
        for (std::size_t i = lines.size() - shown; i < lines.size(); ++i) {
            mRows.push_back(row().add(lines[i]).take());
        }
        mRows.resize(mRows.size() + rows - 1 - shown);
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
