#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

std::set<std::string> checkedHeaders() {
    std::set<std::string> headers;
    std::istringstream list(KELUTV_CHECKED_HEADERS);
    for (std::string header; std::getline(list, header, ',');) {
        headers.insert(header);
    }
    return headers;
}

std::set<std::string> publicHeaders() {
    std::set<std::string> headers;
    const fs::path root(KELUTV_HEADER_DIR);
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        if (entry.is_regular_file()) {
            headers.insert(fs::relative(entry.path(), root).generic_string());
        }
    }
    return headers;
}

TEST(HeaderList, EveryPublicHeaderIsCompiledAlone) { EXPECT_EQ(checkedHeaders(), publicHeaders()); }

} // namespace
