#include "torture/operations/EveryShape.h"

#include <iterator>

namespace kelutv::test {

std::vector<Operation> everyShape() {
    std::vector<Operation> all;
    for (std::vector<Operation> part : {setOperations(), numberOperations(), listOperations(), textOperations()}) {
        all.insert(all.end(), std::make_move_iterator(part.begin()), std::make_move_iterator(part.end()));
    }
    return all;
}

} // namespace kelutv::test
