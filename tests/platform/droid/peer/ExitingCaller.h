#pragma once

#include <string>
#include <vector>

namespace kelutv::test {

/** exit-in-calls NAME: returns from main while threads call the service without end through a static proxy. */
int exitInCalls(const std::vector<std::string>& arguments);

/**
 * exit-in-deliveries NAME: exits while the notice of the service's death and an event are being delivered, neither of
 * which comes back. Prints that it is ready, and then that both have come.
 */
int exitInDeliveries(const std::vector<std::string>& arguments);

constexpr unsigned kDeliveredModule = 0x50000;
constexpr char kDelivered[] = "delivered\n";

} // namespace kelutv::test
