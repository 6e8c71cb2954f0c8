#include "simulator/replay/ReplayScript.h"

#include "simulator/replay/Placement.h"

#include "recording/Origin.h"
#include "recording/Reader.h"
#include "wire/Fingerprint.h"
#include "wire/codec/Token.h"
#include "wire/text/Shown.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <system_error>
#include <tuple>
#include <utility>

namespace kelutv::simulator {

namespace {

using std::chrono::nanoseconds;

constexpr std::size_t kMostRemarksOnLines = 10;

wire::Request requestOf(const recording::Bytes& bytes) {
    wire::ByteReader reader(bytes.data(), bytes.size());
    return wire::readRequest(reader);
}

class ScriptReader {
public:
    explicit ScriptReader(const std::string& name) { mScript.name = name; }

    void add(const recording::Line& line, std::size_t number) {
        mLine = number;
        std::visit([this](const auto& content) { see(content); }, line.content);
    }

    void leaveOut(const std::string& complaint) {
        if (++mLeftOut <= kMostRemarksOnLines) {
            mScript.remarks.push_back(complaint + "; the line is left out");
        }
    }

    ReplayScript finish(bool isCutOff) {
        endSection();
        if (mLeftOut > kMostRemarksOnLines) {
            remark(std::to_string(mLeftOut) + " lines are left out");
        }
        if (mMissing > 0) {
            remark("the recorder left out " + std::to_string(mMissing) + " calls and events");
        }
        if (isCutOff || !mHasEnded) {
            remark("its end is missing; what stands before is replayed");
        }
        if (mScript.calls.empty() && mScript.happenings.empty()) {
            throw ReplayError(mScript.name + ": it holds no request and no event");
        }
        return std::move(mScript);
    }

private:
    void remark(const std::string& text) { mScript.remarks.push_back(mScript.name + ": " + text); }

    void see(const recording::Header& header) {
        if (mHasHeader && !mHasEnded) {
            remark("the end of the part before line " + std::to_string(mLine) + " is missing");
        }
        mHasHeader = true;
        endSection();
        if (!recording::isInOwnOrder(header)) {
            throw ReplayError(mScript.name + ':' + std::to_string(mLine) +
                              ": the bytes are in another order than those of this machine");
        }
        if (header.catalogue != wire::interfaceFingerprint()) {
            remark("it was recorded by a version with other commands; requests are compared byte by byte all the same");
        }
        if (header.token != recording::tokenOfPlatform()) {
            remark("its interface token has another form than here; requests are compared from behind it");
        }
        mHasEnded = false;
    }

    void see(const recording::Transaction& transaction) {
        const recording::Bytes reply = transaction.reply.value_or(recording::Bytes());
        const auto [client, thread] = placeOf(transaction.moment);
        mScript.calls.push_back({mLine,
                                 client,
                                 thread,
                                 requestKeyOf(transaction.request.data(), transaction.request.size()),
                                 requestOf(transaction.request),
                                 transaction.status,
                                 {reply.begin(), reply.end()},
                                 nanoseconds(transaction.moment.time),
                                 nanoseconds(transaction.duration),
                                 std::nullopt,
                                 false});
        mNews.push_back(
            {mLine, client, News::Kind::Call, nanoseconds(transaction.moment.time), mScript.calls.size() - 1, 0, ""});
    }

    void see(const recording::Event& event) {
        mNews.push_back({mLine, placeOf(event.moment).first, News::Kind::Event, nanoseconds(event.moment.time), 0,
                         event.event, std::string(event.payload.begin(), event.payload.end())});
    }

    void see(const recording::Loss& loss) {
        mNews.push_back({mLine, placeOf(loss.moment).first, News::Kind::Loss, nanoseconds(loss.moment.time), 0, 0, ""});
    }

    void see(const recording::Gap& gap) { mMissing += gap.count; }
    void see(const recording::End& /*end*/) { mHasEnded = true; }
    void see(const recording::Unknown& /*unknown*/) {}

    /** The numbers of a process are those of others in another section. */
    std::pair<std::size_t, std::size_t> placeOf(const recording::Moment& moment) {
        const auto [client, isNew] = mClients.emplace(moment.process, mScript.clients);
        mScript.clients += isNew ? 1 : 0;
        const auto [thread, isNewThread] =
            mThreads.emplace(std::make_pair(moment.process, moment.thread), mScript.threads);
        mScript.threads += isNewThread ? 1 : 0;
        return {client->second, thread->second};
    }

    void endSection() {
        placeNews(mNews, mScript);
        mNews.clear();
        mClients.clear();
        mThreads.clear();
    }

    ReplayScript mScript;
    std::vector<News> mNews;
    std::map<std::int32_t, std::size_t> mClients;
    std::map<std::pair<std::int32_t, std::int32_t>, std::size_t> mThreads;
    std::size_t mLine = 0;
    std::size_t mLeftOut = 0;
    std::int64_t mMissing = 0;
    bool mHasHeader = false;
    bool mHasEnded = false;
};

/** @return whether there may be more lines */
bool readNext(recording::Reader& reader, ScriptReader& script) {
    try {
        const std::optional<recording::Line> line = reader.next();
        if (line) {
            script.add(*line, reader.number());
        }
        return line.has_value();
    } catch (const recording::LineError& error) {
        if (reader.number() == 1) {
            throw ReplayError(error.what());
        }
        script.leaveOut(error.what());
        return true;
    }
}

std::ifstream opened(const std::string& path) {
    const std::string shown = wire::shown(path, wire::kMostOfPath);
    std::error_code ignored;
    if (std::filesystem::exists(path, ignored) && !std::filesystem::is_regular_file(path, ignored)) {
        throw ReplayError("cannot read " + shown + ": it is not a regular file");
    }
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open()) {
        throw ReplayError("cannot read " + shown + ": " + std::strerror(errno));
    }
    return file;
}

} // namespace

ReplayScript readReplayScript(const std::string& path) {
    std::ifstream file = opened(path);
    recording::Reader reader(file, path);
    ScriptReader script(reader.name());
    while (readNext(reader, script)) {
    }
    if (reader.number() == 0) {
        throw ReplayError(reader.name() + ": it has no line, and a recording begins with a header");
    }
    return script.finish(reader.isCutOff());
}

std::string requestKeyOf(const std::uint8_t* bytes, std::size_t size) {
    wire::ByteReader reader(bytes, size);
    wire::readToken(reader);
    return {bytes + reader.position(), bytes + size};
}

} // namespace kelutv::simulator
