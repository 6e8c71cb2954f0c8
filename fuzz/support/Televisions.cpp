#include "fuzz/support/Televisions.h"

#include "simulator/control/Control.h"

namespace kelutv::fuzz {

const simulator::Configuration& standardConfiguration() {
    static const auto* const standard = new simulator::Configuration(simulator::Configuration::standard());
    return *standard;
}

simulator::Answer obey(simulator::Equipment& equipment, const std::string& line) {
    return simulator::obey(equipment.configuration, line,
                           [&equipment](const simulator::Deed& deed) { return deed(equipment); });
}

} // namespace kelutv::fuzz
