#include "wire/text/PipeTables.h"

#include "wire/text/Join.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <sstream>

namespace kelutv::wire {

namespace {

using Cells = std::vector<std::string>;

Cells cellsOf(const std::string& line) {
    std::string row = trimmed(line);
    row.erase(0, 1);
    if (!row.empty() && row.back() == '|') {
        row.pop_back();
    }
    return splitAt(row, '|');
}

/** Whether the row only parts the head of a table from its body. */
bool isRule(const Cells& cells) {
    return std::all_of(cells.begin(), cells.end(), [](const std::string& cell) {
        return cell.find('-') != std::string::npos && cell.find_first_not_of("-:") == std::string::npos;
    });
}

class Reader {
public:
    explicit Reader(const std::vector<TableForm>& forms) : mForms(forms) {}

    void read(const std::string& line) {
        ++mLine;
        if (line.compare(0, 3, "## ") == 0) {
            openSection(trimmed(line.substr(3)));
        } else if (line.compare(0, 1, "|") == 0) {
            readRow(cellsOf(line));
        } else {
            mHead.clear();
        }
    }

    std::map<std::string, std::vector<TableRow>> take() { return std::move(mTables); }

private:
    void openSection(const std::string& title) {
        mHead.clear();
        const auto form =
            std::find_if(mForms.begin(), mForms.end(), [&title](const TableForm& each) { return each.title == title; });
        if (form == mForms.end()) {
            Cells titles;
            for (const TableForm& each : mForms) {
                titles.push_back(each.title);
            }
            throw LineError(mLine, "unknown section '" + shown(title) + "', expected one of: " + joined(titles, ", "));
        }
        mForm = &*form;
        if (!mTables.emplace(title, std::vector<TableRow>()).second) {
            throw LineError(mLine, "section '" + shown(title) + "' stands twice");
        }
    }

    void readRow(Cells cells) {
        if (mForm == nullptr) {
            throw LineError(mLine, "a table outside of any known section");
        }
        if (mHead.empty()) {
            readHead(std::move(cells));
        } else if (!isRule(cells)) {
            addRow(cells);
        }
    }

    void readHead(Cells head) {
        for (const std::string& column : head) {
            if (std::count(mForm->columns.begin(), mForm->columns.end(), column) == 0) {
                throw LineError(mLine,
                                "unknown column '" + shown(column) + "', expected: " + joined(mForm->columns, " | "));
            }
        }
        for (const std::string& column : mForm->columns) {
            const auto count = std::count(head.begin(), head.end(), column);
            if (count != 1) {
                throw LineError(mLine, count == 0 ? "missing column '" + shown(column) + "'"
                                                  : "column '" + shown(column) + "' stands twice");
            }
        }
        mHead = std::move(head);
    }

    void addRow(const Cells& cells) {
        if (cells.size() != mHead.size()) {
            throw LineError(mLine, std::to_string(cells.size()) + " cells, but the table has " +
                                       std::to_string(mHead.size()) + " columns");
        }
        TableRow row{mLine, {}};
        for (const std::string& column : mForm->columns) {
            const auto place = std::find(mHead.begin(), mHead.end(), column) - mHead.begin();
            row.cells.push_back(cells[static_cast<std::size_t>(place)]);
            if (row.cells.back().empty()) {
                throw LineError(mLine, "empty cell in column '" + shown(column) + "', write - for nothing");
            }
        }
        mTables[mForm->title].push_back(std::move(row));
    }

    const std::vector<TableForm>& mForms;
    const TableForm* mForm = nullptr;
    Cells mHead;
    std::size_t mLine = 0;
    std::map<std::string, std::vector<TableRow>> mTables;
};

} // namespace

std::string trimmed(const std::string& piece) {
    constexpr char kBlanks[] = " \t\r";
    const std::size_t first = piece.find_first_not_of(kBlanks);
    return first == std::string::npos ? "" : piece.substr(first, piece.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string> splitAt(const std::string& text, char separator) {
    Cells pieces;
    std::size_t start = 0;
    for (std::size_t end = text.find(separator); end != std::string::npos; end = text.find(separator, start)) {
        pieces.push_back(trimmed(text.substr(start, end - start)));
        start = end + 1;
    }
    pieces.push_back(trimmed(text.substr(start)));
    return pieces;
}

std::map<std::string, std::vector<TableRow>> readPipeTables(const std::string& text,
                                                            const std::vector<TableForm>& forms) {
    Reader reader(forms);
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        reader.read(line);
    }
    return reader.take();
}

} // namespace kelutv::wire
