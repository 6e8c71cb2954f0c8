#include "torture/matrix/FaultTables.h"

#include <fstream>
#include <stdexcept>

namespace kelutv::test {

namespace {

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/** The cells of a line `| a | b |`; none of any other line. */
std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells;
    for (std::size_t begin = line.find('|'); begin == 0 || !cells.empty();) {
        const std::size_t end = line.find('|', begin + 1);
        if (end == std::string::npos) {
            break;
        }
        cells.push_back(trimmed(line.substr(begin + 1, end - begin - 1)));
        begin = end;
    }
    return cells;
}

} // namespace

std::vector<Row> faultTable(const std::string& firstHeading) {
    std::ifstream page(KELUTV_FAULTS_PAGE);
    std::vector<std::string> headings;
    std::vector<Row> rows;
    for (std::string line; std::getline(page, line);) {
        const std::vector<std::string> cells = cellsOf(line);
        if (headings.empty()) {
            headings = !cells.empty() && cells.front() == firstHeading ? cells : headings;
            continue;
        }
        if (cells.empty()) {
            break;
        }
        if (cells.size() != headings.size()) {
            throw std::runtime_error("this row has not as many cells as its table: " + line);
        }
        Row row;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            row[headings[i]] = cells[i];
        }
        rows.push_back(row);
    }
    if (rows.size() < 2) {
        throw std::runtime_error("there is no table of '" + firstHeading + "' in " KELUTV_FAULTS_PAGE);
    }
    // The line below the headings.
    rows.erase(rows.begin());
    return rows;
}

std::string cellOf(const Row& row, const std::string& column) {
    const auto found = row.find(column);
    if (found == row.end()) {
        throw std::runtime_error("the table has no column '" + column + "'");
    }
    const std::string& cell = found->second;
    const bool quoted = cell.size() >= 2 && cell.front() == '`' && cell.back() == '`';
    return quoted ? cell.substr(1, cell.size() - 2) : cell;
}

} // namespace kelutv::test
