#include "handlers.h"

#include <kelutv-service/Service.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

int main() {
    try {
        kelutv::service::Service service("tv-service");
        service.handle("audio", audio);
        return service.run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tv-service: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
