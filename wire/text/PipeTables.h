#pragma once

#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelutv::wire {

/** What is wrong with a text, and on which of its lines, from 1. */
class LineError : public std::runtime_error {
public:
    LineError(std::size_t line, const std::string& message) : std::runtime_error(message), mLine(line) {}

    std::size_t line() const { return mLine; }

private:
    std::size_t mLine;
};

struct TableRow {
    std::size_t line;
    /** In the order in which the form of the table names the columns. */
    std::vector<std::string> cells;
};

/** A table below a heading of its own; all columns must be there, in any order. */
struct TableForm {
    std::string title;
    std::vector<std::string> columns;
};

/**
 * The rows of the Markdown pipe tables below `##` headings, by heading; a heading that is missing has no entry.
 * @throws LineError for a heading or a column that no form has, a missing column, a row of another length, an empty
 * cell
 */
std::map<std::string, std::vector<TableRow>> readPipeTables(const std::string& text,
                                                            const std::vector<TableForm>& forms);

/** The piece without blanks around it. */
std::string trimmed(const std::string& piece);

/** The pieces of a text between separators, without blanks around them. */
std::vector<std::string> splitAt(const std::string& text, char separator);

} // namespace kelutv::wire
