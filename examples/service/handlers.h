#pragma once

#include <kelutv-service/Service.h>

// One function a module, in the file of its name: it carries out the requests of that module.
kelutv::service::Reply audio(const kelutv::service::Request& request, kelutv::service::Events& events);
