#include "tools/interposition/Seam.h"
#include "tools/kelutv/doctor/DoctorChecks.h"
#include "tools/kelutv/text/Lists.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>

namespace kelutv::tool {

namespace {

using interposition::SeamSymbol;

std::string fileName(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

/** Of the compiler and the C library; the platform's is what else there is. */
bool isOfLanguage(const std::string& library) {
    static constexpr const char* kNames[] = {"libc.so",  "libm.so",       "libstdc++.so", "libgcc_s.so",
                                             "libdl.so", "libpthread.so", "ld-linux"};
    const std::string name = fileName(library);
    return std::any_of(std::begin(kNames), std::end(kNames),
                       [&name](const char* each) { return name.rfind(each, 0) == 0; });
}

Finding lookForLibraries() {
    std::map<std::string, std::size_t> libraries;
    std::error_code error;
    for (const SeamSymbol& symbol : interposition::seamOfClientLibrary()) {
        if (!symbol.library.empty() && !isOfLanguage(symbol.library)) {
            ++libraries[std::filesystem::weakly_canonical(symbol.library, error)];
        }
    }
    std::vector<std::string> words;
    for (const auto& [path, count] : libraries) {
        words.push_back(path + " (" + std::to_string(count) + ')');
    }
    if (words.empty()) {
        return {Verdict::Bad, "no library of a platform is behind the client library"};
    }
    return {Verdict::Good, joined(words, ", ")};
}

Finding lookForSymbols() {
    constexpr std::size_t kMost = 5;
    const std::vector<SeamSymbol> symbols = interposition::seamOfClientLibrary();
    std::vector<std::string> missing;
    for (const SeamSymbol& symbol : symbols) {
        if (symbol.library.empty()) {
            missing.push_back(interposition::readableName(symbol.name));
        }
    }
    if (missing.empty()) {
        return {Verdict::Good,
                "all " + std::to_string(symbols.size()) + " names that the client library needs are there"};
    }
    const std::size_t count = missing.size();
    missing.resize(std::min(count, kMost));
    return {Verdict::Bad, std::to_string(count) + " of " + std::to_string(symbols.size()) +
                              " names that the client library needs are missing: " + joined(missing, ", ") +
                              (count > kMost ? ", ..." : "")};
}

} // namespace

void addPlatformChecks(std::vector<Check>& checks, const DoctorOptions& options) {
    checks.push_back({"platform.libraries", "platform", options.limit, lookForLibraries});
    checks.push_back({"platform.seam", "platform", options.limit, lookForSymbols});
}

} // namespace kelutv::tool
