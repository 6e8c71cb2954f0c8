#include "tools/kelutv/doctor/Report.h"

#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/text/Lists.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

const char* wordOf(Verdict verdict) {
    switch (verdict) {
    case Verdict::Good:
        return "ok";
    case Verdict::Unasked:
    case Verdict::Warning:
        return "warn";
    default:
        return "FAIL";
    }
}

Style styleOf(Verdict verdict) {
    switch (verdict) {
    case Verdict::Good:
        return Style::Good;
    case Verdict::Unasked:
    case Verdict::Warning:
        return Style::Number;
    default:
        return Style::Bad;
    }
}

Json documentOf(const Check& check, const Finding& finding) {
    Json document{{"check", check.name}, {"verdict", wordOf(finding.verdict)}, {"text", finding.text}};
    document["milliseconds"] =
        finding.time.count() == 0 ? Json() : Json(std::chrono::duration<double, std::milli>(finding.time).count());
    return document;
}

} // namespace

void DoctorReport::add(const Check& check, const Finding& finding) {
    mGood += finding.verdict == Verdict::Good ? 1 : 0;
    mWarnings += finding.verdict == Verdict::Warning || finding.verdict == Verdict::Unasked ? 1 : 0;
    mFailures += finding.verdict > Verdict::Warning ? 1 : 0;
    mIsUnlinked = mIsUnlinked || finding.verdict == Verdict::Unlinked;
    mIsTimeOver = mIsTimeOver || finding.verdict == Verdict::TimeOver;
    mOutput.document(documentOf(check, finding));
    if (!isReadCheck(check) || check.topic != mReads.module) {
        tellReads();
    }
    if (isReadCheck(check)) {
        addRead(check, finding);
    }
    if (!isReadCheck(check) || finding.verdict != Verdict::Good) {
        tell(check.name, finding);
    }
}

void DoctorReport::addRead(const Check& check, const Finding& finding) {
    mReads.module = check.topic;
    ++mReads.all;
    mReads.answered += finding.verdict == Verdict::Good ? 1 : 0;
    if (finding.time > mReads.slowest.time) {
        mReads.slowest = finding;
        mReads.slowestName = check.name;
    }
}

void DoctorReport::tellReads() {
    if (mReads.all == 0) {
        return;
    }
    const Verdict verdict = mReads.answered == mReads.all ? Verdict::Good : Verdict::Warning;
    tell("read." + mReads.module,
         {verdict, std::to_string(mReads.answered) + " of " + counted(mReads.all, "operation") + " answered" +
                       (mReads.slowestName.empty()
                            ? ""
                            : ", slowest " + mReads.slowestName + " in " + millisecondsText(mReads.slowest.time))});
    mReads = {};
}

void DoctorReport::tell(const std::string& name, const Finding& finding) const {
    constexpr std::size_t kVerdictWidth = 6;
    std::string word = wordOf(finding.verdict);
    const std::string space(kVerdictWidth - word.size(), ' ');
    mOutput.line(mOutput.styled(styleOf(finding.verdict), word) + space + mOutput.styled(Style::Name, name) + ": " +
                 finding.text);
}

Exit DoctorReport::finish(std::size_t leftOut) {
    tellReads();
    mOutput.line(counted(mGood + mWarnings + mFailures, "check") + ": " + std::to_string(mGood) + " ok, " +
                 counted(mWarnings, "warning") + ", " + counted(mFailures, "failure") +
                 (leftOut == 0 ? "" : ", " + std::to_string(leftOut) + " left out"));
    mOutput.document({{"ok", mGood}, {"warnings", mWarnings}, {"failures", mFailures}, {"leftOut", leftOut}});
    if (mFailures == 0) {
        return Exit::Success;
    }
    return mIsUnlinked ? Exit::Link : mIsTimeOver ? Exit::TimeOver : Exit::Service;
}

} // namespace kelutv::tool
