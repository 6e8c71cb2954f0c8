#pragma once

#include <map>
#include <string>
#include <vector>

namespace kelutv::test {

/** A row of a table: what stands in each column, by the column's heading. */
using Row = std::map<std::string, std::string>;

/** The rows of the reference page's table that has this heading in its first column. Throws when there is none. */
std::vector<Row> faultTable(const std::string& firstHeading);

/** What stands in a column of a row, without the backticks around it. Throws when the table has no such column. */
std::string cellOf(const Row& row, const std::string& column);

} // namespace kelutv::test
