#include "tools/kelutv/recordings/RecordingCheck.h"

#include "recording/Origin.h"
#include "tools/kelutv/recordings/DecodedForm.h"
#include "tools/kelutv/recordings/RecordingInput.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/Fingerprint.h"
#include "wire/text/Shown.h"

#include <cstddef>

namespace kelutv::tool {

namespace {

constexpr std::size_t kMostFaults = 100;

/** Whether the decoded form is by the events that are known here: those of another television have other names. */
bool isByKnownEvents(const recording::Event& event) {
    const Json decoded = event.decoded.empty() ? Json() : Json::parsed(event.decoded);
    const Json* const name = decoded.isObject() ? decoded.find("name") : nullptr;
    if (name != nullptr && name->isNull()) {
        return recordedEvents().find(event.event) == nullptr;
    }
    return name == nullptr || !name->isText() || recordedEvents().named(name->asText()) != nullptr;
}

class Checker {
public:
    Checker(std::string file, const Output& output) : mFile(std::move(file)), mOutput(output) {}

    void see(const recording::Line& line, std::size_t number) {
        mNumber = number;
        if (const std::int64_t* const sequence = recording::sequenceOf(line)) {
            seeSequence(*sequence);
            if (mHasEnded) {
                fault("it stands behind the end of its section, and a section begins with a header");
            }
        }
        std::visit([this](const auto& content) { see(content); }, line.content);
    }

    void complain(const std::string& text) {
        if (++mFaults <= kMostFaults) {
            mOutput.line(text);
            mTexts.add(text);
        }
    }

    Exit finish(bool isCutOff) {
        const bool isWhole = mHasEnded && !isCutOff;
        mOutput.line(counted(mSections, "section") + ", " + counted(mCalls, "call") + ", " + counted(mEvents, "event") +
                     ", " + counted(mLosses, "loss", "losses") + ", " + std::to_string(mLeftOut) + " left out" +
                     (isWhole ? "" : "; its end is missing") + "; " +
                     (mFaults == 0 ? "nothing is wrong" : counted(mFaults, "fault")));
        mOutput.document({{"sections", mSections},
                          {"calls", mCalls},
                          {"events", mEvents},
                          {"losses", mLosses},
                          {"leftOut", mLeftOut},
                          {"ended", isWhole},
                          {"faults", mFaults},
                          {"texts", mTexts}});
        return mFaults == 0 ? Exit::Success : Exit::Failure;
    }

private:
    void fault(const std::string& text) {
        complain(wire::shown(mFile, wire::kMostOfPath) + ':' + std::to_string(mNumber) + ": " + text);
    }

    void seeSequence(std::int64_t sequence) {
        if (sequence <= mSequence) {
            fault("\"sequence\" is " + std::to_string(sequence) + " behind " + std::to_string(mSequence));
        }
        mSequence = sequence;
    }

    void see(const recording::Header& header) {
        ++mSections;
        mSequence = 0;
        mHasEnded = false;
        mIsOurs = header.catalogue == wire::interfaceFingerprint() && recording::isInOwnOrder(header);
        mAreEventsOurs = header.library == KELUTV_VERSION;
    }

    void see(const recording::Transaction& transaction) {
        ++mCalls;
        seeDecoded(transaction);
    }

    void see(const recording::Event& event) {
        ++mEvents;
        if (mAreEventsOurs && isByKnownEvents(event)) {
            seeDecoded(event);
        }
    }

    template <typename Content> void seeDecoded(const Content& content) {
        if (mIsOurs && !content.decoded.empty() && content.decoded != decodedForm(content)) {
            fault("the decoded form is not that of the bytes");
        }
    }

    void see(const recording::Loss& /*loss*/) { ++mLosses; }
    void see(const recording::Gap& gap) { mLeftOut += gap.count; }
    void see(const recording::End& /*end*/) { mHasEnded = true; }
    void see(const recording::Unknown& /*unknown*/) {}

    std::string mFile;
    const Output& mOutput;
    std::size_t mNumber = 0;
    std::size_t mSections = 0;
    std::size_t mCalls = 0;
    std::size_t mEvents = 0;
    std::size_t mLosses = 0;
    std::int64_t mLeftOut = 0;
    std::int64_t mSequence = 0;
    bool mHasEnded = false;
    /** Whether the events are described by this version: no number stands for their descriptions. */
    bool mAreEventsOurs = false;
    /** Whether the decoded forms are by the catalogue of this program, and the bytes in the order of this machine. */
    bool mIsOurs = false;
    std::size_t mFaults = 0;
    Json mTexts = Json::array();
};

/** @return whether there may be more lines */
bool seeNext(RecordingInput& input, Checker& checker) {
    try {
        const std::optional<recording::Line> line = input.reader().next();
        if (line) {
            checker.see(*line, input.reader().number());
        }
        return line.has_value();
    } catch (const recording::LineError& error) {
        checker.complain(error.what());
        return true;
    }
}

} // namespace

Exit checkRecording(const std::string& path, const Output& output) {
    RecordingInput input(path);
    Checker checker(path, output);
    while (seeNext(input, checker)) {
    }
    if (input.reader().number() == 0) {
        checker.complain(wire::shown(path, wire::kMostOfPath) +
                         ": it has no line, and a recording begins with a header");
    }
    return checker.finish(input.reader().isCutOff());
}

} // namespace kelutv::tool
