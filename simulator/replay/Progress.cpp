#include "simulator/replay/Progress.h"

#include <algorithm>
#include <sstream>

namespace kelutv::simulator {

namespace {

constexpr char kPublished = '+';
constexpr char kEnd[] = "end";

void writeCounts(std::ostream& out, const std::map<std::string, std::size_t>& counts) {
    out << counts.size() << '\n';
    for (const auto& [name, count] : counts) {
        out << count << ' ' << name << '\n';
    }
}

Progress::Clock::rep countOf(Progress::Clock::time_point time) { return time.time_since_epoch().count(); }

class ProgressReader {
public:
    ProgressReader(const ReplayScript& script, const std::string& text) : mName(script.name), mText(text) {}

    std::size_t number() {
        std::size_t value = 0;
        require(static_cast<bool>(mText >> value));
        return value;
    }

    std::size_t index(std::size_t count) {
        const std::size_t value = number();
        require(value < count);
        return value;
    }

    /** By the clock of the machine, which goes on. */
    Progress::Clock::time_point time() {
        Progress::Clock::rep count = 0;
        require(static_cast<bool>(mText >> count));
        return Progress::Clock::time_point(Progress::Clock::duration(count));
    }

    /** A line of its own, of this length. */
    std::string word(std::size_t length) {
        std::string text;
        require(std::getline(mText, text) && text.size() == length);
        return text;
    }

    std::map<std::string, std::size_t> counts() {
        std::map<std::string, std::size_t> counts;
        for (std::size_t left = number(); left > 0; --left) {
            const std::size_t count = number();
            std::string name;
            mText.ignore(1);
            require(static_cast<bool>(std::getline(mText, name)));
            counts[name] = count;
        }
        return counts;
    }

    void finish() {
        std::string text;
        require(mText >> text && text == kEnd);
    }

private:
    void require(bool holds) const {
        if (!holds) {
            throw ReplayError(mName + ": it has changed since the replay began");
        }
    }

    const std::string& mName;
    std::istringstream mText;
};

} // namespace

Progress::Call askedFor(Progress::Call call) {
    return call == Progress::Call::Failing ? Progress::Call::Failed : Progress::Call::Asked;
}

Progress::Call takenBack(Progress::Call call) {
    return call == Progress::Call::Failed ? Progress::Call::Failing : Progress::Call::Waiting;
}

std::string textOf(const Progress& progress) {
    std::ostringstream out;
    for (const Progress::Call call : progress.calls) {
        out << static_cast<char>(call);
    }
    out << '\n';
    for (const bool isPublished : progress.published) {
        out << (isPublished ? kPublished : '.');
    }
    out << '\n';
    for (const std::optional<std::size_t>& last : progress.last) {
        out << (last ? *last + 1 : 0) << '\n';
    }
    out << progress.pending.size() << '\n';
    for (const Progress::Pending& pending : progress.pending) {
        out << countOf(pending.due) << ' ' << pending.happening << '\n';
    }
    out << countOf(progress.returnTime) << '\n';
    out << progress.clients.size() << '\n';
    for (const auto& [process, client] : progress.clients) {
        out << process << ' ' << client << '\n';
    }
    writeCounts(out, progress.again);
    writeCounts(out, progress.unrecorded);
    out << kEnd << '\n';
    return out.str();
}

Progress progressOf(const ReplayScript& script, const std::string& text) {
    Progress progress(script);
    ProgressReader reader(script, text);
    const std::string calls = reader.word(script.calls.size());
    std::transform(calls.begin(), calls.end(), progress.calls.begin(),
                   [](char call) { return static_cast<Progress::Call>(call); });
    const std::string published = reader.word(script.happenings.size());
    std::transform(published.begin(), published.end(), progress.published.begin(),
                   [](char mark) { return mark == kPublished; });
    for (std::optional<std::size_t>& last : progress.last) {
        if (const std::size_t number = reader.index(script.calls.size() + 1); number > 0) {
            last = number - 1;
        }
    }
    for (std::size_t left = reader.number(); left > 0; --left) {
        const Progress::Clock::time_point due = reader.time();
        progress.pending.push_back({due, reader.index(script.happenings.size())});
    }
    progress.returnTime = reader.time();
    for (std::size_t left = reader.number(); left > 0; --left) {
        const auto process = static_cast<pid_t>(reader.number());
        progress.clients[process] = reader.index(script.clients);
    }
    progress.again = reader.counts();
    progress.unrecorded = reader.counts();
    reader.finish();
    return progress;
}

} // namespace kelutv::simulator
