#pragma once

#include <memory>
#include <string>
#include <vector>

namespace kelutv::test {

/** A regular expression in ECMAScript's form. It keeps the standard library's header, slow to compile, from the tests.
 */
class Pattern {
public:
    /** What was found first, then what each pair of parentheses holds. */
    using Groups = std::vector<std::string>;

    explicit Pattern(const std::string& expression);
    ~Pattern();

    /** Whether it matches the whole text. */
    bool matches(const std::string& text) const { return !match(text).empty(); }

    /** What it finds in the text when it matches the whole of it; empty otherwise. */
    Groups match(const std::string& text) const;

    /** What it finds at each place of the text. */
    std::vector<Groups> findAll(const std::string& text) const;

private:
    struct Expression;

    std::unique_ptr<const Expression> mExpression;
};

} // namespace kelutv::test
