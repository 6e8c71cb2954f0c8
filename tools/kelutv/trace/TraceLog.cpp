#include "tools/kelutv/trace/TraceLog.h"

#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Streams.h"
#include "wire/text/Describe.h"
#include "wire/text/Names.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <binder/IBinder.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace kelutv::tool {

namespace {

using Seconds = std::chrono::duration<double>;

double secondsOf(std::chrono::nanoseconds time) { return Seconds(time).count(); }

std::string callerOf(const TracedTransaction& transaction) {
    const std::string process = std::to_string(transaction.process);
    const bool isMain = transaction.thread == transaction.process;
    return '[' + process + (isMain ? "" : ':' + std::to_string(transaction.thread)) + "] ";
}

std::string statusText(std::int32_t status) {
    return status == android::DEAD_OBJECT ? "no reply: the link is dead" : "no reply: status " + std::to_string(status);
}

std::string lineOf(const TracedTransaction& transaction, const DecodedRequest& decoded) {
    const wire::Operation& operation = operationFor(decoded.request);
    char duration[32];
    std::snprintf(duration, sizeof(duration), " <%.6f>", secondsOf(transaction.duration));
    return callerOf(transaction) + wire::describe(decoded.request) +
           (decoded.flaw ? " [" + textOf(*decoded.flaw) + ']' : "") + " -> " +
           (transaction.status != android::NO_ERROR ? statusText(transaction.status)
                                                    : textOf(operation, decodeReply(operation, transaction.reply))) +
           duration;
}

Json traceDocument(const TracedTransaction& transaction, const DecodedRequest& decoded) {
    const wire::Operation& operation = operationFor(decoded.request);
    Json document;
    document["process"] = transaction.process;
    document["thread"] = transaction.thread;
    document["start"] = secondsOf(transaction.start);
    document["duration"] = secondsOf(transaction.duration);
    document["status"] = transaction.status;
    document["request"] = documentOf(decoded);
    document["reply"] = transaction.status == android::NO_ERROR
                            ? documentOf(operation, decodeReply(operation, transaction.reply))
                            : Json();
    return document;
}

std::vector<wire::RequestPattern> patternsOf(const std::vector<std::string>& filters) {
    std::vector<wire::RequestPattern> patterns;
    for (const std::string& filter : filters) {
        try {
            patterns.emplace_back(filter);
        } catch (const wire::UnknownName&) {
            throw UsageError("--filter: no command or item is called " + wire::shown(filter) +
                             wire::nearestHint(filter, wire::RequestPattern::names()));
        }
    }
    return patterns;
}

int closeUnlessShared(std::FILE* file) { return file != ownError() ? std::fclose(file) : 0; }

std::FILE* open(const std::string& path) {
    std::FILE* const file = path.empty() ? ownError() : std::fopen(path.c_str(), "we");
    if (file == nullptr) {
        throw ToolError(Exit::Failure,
                        "cannot write to " + wire::shown(path, wire::kMostOfPath) + ": " + std::strerror(errno));
    }
    return file;
}

} // namespace

TraceLog::TraceLog(const Options& options)
    : mFile(nullptr, closeUnlessShared), mPath(options.file), mFilters(patternsOf(options.filters)),
      mLeft(options.count), mLimited(options.count != 0), mJson(options.json) {
    mFile.reset(open(options.file));
}

void TraceLog::write(const TracedTransaction& transaction) {
    const DecodedRequest decoded = decodeRequest(transaction.request);
    if (!isWanted(decoded.request) || (mLimited && mLeft == 0)) {
        return;
    }
    mLeft -= mLimited ? 1 : 0;
    writeLine(mJson ? traceDocument(transaction, decoded).dump() : lineOf(transaction, decoded));
}

void TraceLog::writeLeftOut(std::uint32_t count) {
    Json document;
    document["leftOut"] = std::int64_t{count};
    writeLine(mJson ? document.dump()
                    : "... " + std::to_string(count) + (count == 1 ? " command" : " commands") + " left out");
}

void TraceLog::writeLine(const std::string& line) {
    std::fprintf(mFile.get(), "%s\n", line.c_str());
    std::fflush(mFile.get());
}

void TraceLog::finish() {
    if (std::ferror(mFile.get()) != 0) {
        throw ToolError(Exit::Failure, "cannot write all of the trace to " +
                                           (mPath.empty() ? "standard error" : wire::shown(mPath, wire::kMostOfPath)));
    }
}

bool TraceLog::isWanted(const wire::Request& request) const {
    return mFilters.empty() ||
           std::any_of(mFilters.begin(), mFilters.end(),
                       [&request](const wire::RequestPattern& filter) { return filter.matches(request); });
}

} // namespace kelutv::tool
