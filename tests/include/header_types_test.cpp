#include "support/Pattern.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/** The declarations of all public headers, comments left out. */
std::string declarations() {
    std::string text;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(KELUTV_HEADER_DIR)) {
        if (entry.is_regular_file()) {
            text += contents(entry.path());
        }
    }
    for (std::size_t start = 0; (start = text.find("/*", start)) != std::string::npos;) {
        text.erase(start, text.find("*/", start) + 2 - start);
    }
    return text;
}

std::set<std::string> namesIn(const std::string& text, const std::string& pattern) {
    std::set<std::string> names;
    for (const auto& groups : kelutv::test::Pattern(pattern).findAll(text)) {
        names.insert(groups[1]);
    }
    return names;
}

TEST(HeaderTypes, SizeOfEachIsPinned) {
    const std::string text = declarations();
    std::set<std::string> types = namesIn(text, R"((?:struct|class KELUTV_API) (\w+) (?:: public [^{]*)?\{)");
    types.merge(namesIn(text, R"(\} (\w+);)"));
    types.merge(namesIn(text, R"(typedef int (\w+);)"));
    const fs::path folder(KELUTV_LAYOUT_DIR);
    const std::string layout = contents(folder / "layout.h") + contents(folder / "layout_cxx.cpp");
    std::set<std::string> pinned = namesIn(layout, R"(sizeof\((?:android::)?(\w+)\))");
    pinned.merge(namesIn(layout, R"(kIsEmptyClass<(\w+)>)"));
    EXPECT_GE(types.size(), 115U);
    for (const std::string& type : types) {
        EXPECT_EQ(pinned.count(type), 1U) << type;
    }
}

TEST(HeaderTypes, NoneIsOfAWidthThatMachinesDifferIn) {
    EXPECT_EQ(namesIn(declarations(), R"(\b(long|time_t|s?size_t|off_t|wchar_t|u?intptr_t|ptrdiff_t)\b)"),
              std::set<std::string>());
}

TEST(HeaderTypes, NoneIsAPlainCharByValue) {
    EXPECT_EQ(namesIn(declarations(), R"(((?:unsigned |signed )?\bchar(?!\*| const\*)[^,;)]*))"),
              std::set<std::string>({"char BOE_OD_TableName[10]"}));
}

} // namespace
