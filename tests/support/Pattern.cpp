#include "support/Pattern.h"

#include <regex>

namespace kelutv::test {

namespace {

Pattern::Groups groupsOf(const std::smatch& found) { return {found.begin(), found.end()}; }

} // namespace

struct Pattern::Expression {
    explicit Expression(const std::string& text) : regex(text) {}

    std::regex regex;
};

Pattern::Pattern(const std::string& expression) : mExpression(std::make_unique<Expression>(expression)) {}

Pattern::~Pattern() = default;

Pattern::Groups Pattern::match(const std::string& text) const {
    std::smatch found;
    return std::regex_match(text, found, mExpression->regex) ? groupsOf(found) : Groups{};
}

std::vector<Pattern::Groups> Pattern::findAll(const std::string& text) const {
    std::vector<Groups> all;
    for (std::sregex_iterator each(text.begin(), text.end(), mExpression->regex), end; each != end; ++each) {
        all.push_back(groupsOf(*each));
    }
    return all;
}

} // namespace kelutv::test
