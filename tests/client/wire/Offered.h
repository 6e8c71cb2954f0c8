#pragma once

#include "wire/Rows.h"

namespace kelutv::test {

/** A table of a generated source, offered to the test program that it is linked into. Exists from start to exit. */
template <typename Row> class Offered {
public:
    explicit Offered(wire::Rows<Row> rows) : mRows(rows), mNext(first) { first = this; }

    /** Every row of every table, put into a list of pointers. */
    template <typename List> static List all() {
        List found;
        for (const Offered* table = first; table != nullptr; table = table->mNext) {
            for (const Row& row : table->mRows) {
                found.push_back(&row);
            }
        }
        return found;
    }

private:
    static inline const Offered* first = nullptr;

    wire::Rows<Row> mRows;
    const Offered* mNext;
};

} // namespace kelutv::test
