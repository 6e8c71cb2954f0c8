#include "simulator/replay/RecordingFile.h"

#include "wire/Fingerprint.h"

#include <fstream>

namespace kelutv::test {

RecordingFile::RecordingFile() {
    recording::Header header;
    header.library = "1.0.0";
    header.catalogue = wire::interfaceFingerprint();
    header.token = Wire::token(28, u"android.ITVBaseService").bytes();
    header.machine = "x86_64";
    header.system = "Linux 6.1.0";
    header.start = "2026-11-22T13:55:01.000000000Z";
    mLines.push_back({header});
}

RecordingFile& RecordingFile::in(std::int32_t process, std::int32_t thread) {
    mProcess = process;
    mThread = thread == 0 ? process : thread;
    return *this;
}

RecordingFile& RecordingFile::call(const Bytes& request, const Bytes& reply, std::chrono::nanoseconds duration) {
    const recording::Moment moment = next();
    mTime += duration.count();
    return add({recording::Transaction{moment, duration.count(), 0, request, reply, ""}});
}

RecordingFile& RecordingFile::failed(const Bytes& request, std::int32_t status, std::chrono::nanoseconds duration) {
    const recording::Moment moment = next();
    mTime += duration.count();
    return add({recording::Transaction{moment, duration.count(), status, request, std::nullopt, ""}});
}

RecordingFile& RecordingFile::event(std::uint32_t identifier, const Bytes& payload) {
    return add({recording::Event{next(), identifier, payload, ""}});
}

RecordingFile& RecordingFile::loss() { return add({recording::Loss{next()}}); }

RecordingFile& RecordingFile::pause(std::chrono::nanoseconds time) {
    mTime += time.count();
    return *this;
}

RecordingFile& RecordingFile::add(const recording::Line& line) {
    mLines.push_back(line);
    return *this;
}

std::string RecordingFile::text() const {
    std::string text;
    for (const recording::Line& line : mLines) {
        text += recording::textOf(line) + '\n';
    }
    return text + recording::textOf({recording::End{mSequence + 1, mTime, "program"}}) + '\n';
}

const std::string& RecordingFile::path() const {
    std::ofstream(mPath) << text();
    return mPath;
}

recording::Moment RecordingFile::next() {
    constexpr std::int64_t kMillisecond = 1000000;
    mTime += kMillisecond;
    return {++mSequence, mTime, mProcess, mThread};
}

} // namespace kelutv::test
