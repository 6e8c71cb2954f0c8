# What the library is measured beside. Each is left out, with a line that says so, where it is not installed.

include_guard(GLOBAL)

function(kelutv_bench_sd_bus program)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(SYSTEMD QUIET IMPORTED_TARGET libsystemd)
    if(NOT SYSTEMD_FOUND)
        message(STATUS "benchmarks without sd-bus: libsystemd is missing (Debian: libsystemd-dev)")
        return()
    endif()
    target_sources(${program} PRIVATE peers/SdBusPeer.cpp)
    target_compile_definitions(${program} PRIVATE KELUTV_BENCH_SD_BUS)
    target_link_libraries(${program} PRIVATE PkgConfig::SYSTEMD)
endfunction()

function(kelutv_bench_grpc program)
    find_package(Protobuf QUIET)
    find_library(KELUTV_GRPC_LIBRARY grpc++)
    find_program(KELUTV_GRPC_PLUGIN grpc_cpp_plugin)
    if(NOT Protobuf_FOUND OR NOT KELUTV_GRPC_LIBRARY OR NOT KELUTV_GRPC_PLUGIN)
        message(STATUS "benchmarks without gRPC: it is missing (Debian: libgrpc++-dev libprotobuf-dev protobuf-compiler-grpc)")
        return()
    endif()
    set(made "${CMAKE_CURRENT_BINARY_DIR}/peers")
    set(interface "${CMAKE_CURRENT_SOURCE_DIR}/peers/television.proto")
    set(sources "${made}/television.pb.cc" "${made}/television.grpc.pb.cc")
    file(MAKE_DIRECTORY "${made}")
    add_custom_command(
        OUTPUT ${sources} "${made}/television.pb.h" "${made}/television.grpc.pb.h"
        COMMAND protobuf::protoc --proto_path "${CMAKE_CURRENT_SOURCE_DIR}/peers" --cpp_out "${made}" --grpc_out "${made}"
                "--plugin=protoc-gen-grpc=${KELUTV_GRPC_PLUGIN}" "${interface}"
        DEPENDS "${interface}"
        VERBATIM)
    add_library(kelutv_bench_television STATIC ${sources})
    target_include_directories(kelutv_bench_television SYSTEM PUBLIC "${made}")
    target_link_libraries(kelutv_bench_television PUBLIC "${KELUTV_GRPC_LIBRARY}" protobuf::libprotobuf)
    # Its headers call libraries that only its own libraries name.
    target_link_options(kelutv_bench_television INTERFACE LINKER:--copy-dt-needed-entries)
    target_sources(${program} PRIVATE peers/GrpcPeer.cpp)
    target_compile_definitions(${program} PRIVATE KELUTV_BENCH_GRPC)
    target_link_libraries(${program} PRIVATE kelutv_bench_television)
endfunction()

# kelutv_bench_peers(<program>): those that are installed
function(kelutv_bench_peers program)
    kelutv_bench_sd_bus(${program})
    kelutv_bench_grpc(${program})
endfunction()
