# Installs what a developer needs and builds programs against it, by pkg-config and by find_package(): the examples, and
# others that run with no service there.

include("${CMAKE_CURRENT_LIST_DIR}/steps.cmake")

set(scratch "${work_dir}/install")
set(prefix "${scratch}/prefix")
file(REMOVE_RECURSE "${scratch}")

# Without the platform's development files there is no platform to link with, which is said.
install_to("${scratch}/library-alone" runtime development platform)
set(ENV{PKG_CONFIG_LIBDIR} "${scratch}/library-alone/${libdir}/pkgconfig")
expect_failure("Package 'kelutv-platform', required by 'kelutvbaseclient-link', not found"
               pkg-config --libs kelutvbaseclient-link)
expect_failure("platform's[ \n]+development[ \n]+files,[ \n]+but[ \n]+[^ \n]+/kelutv-platform[ \n]+is[ \n]+not" ${configure_command} -S
               "${CMAKE_CURRENT_LIST_DIR}/consumer" -B "${scratch}/library-alone/build"
               "-Dkelutvbaseclient_DIR=${scratch}/library-alone/${libdir}/cmake/kelutvbaseclient")
# Unless it is named.
string(REPLACE ";" "\\;" escaped_libraries "${sdk_libraries}")
configure("${CMAKE_CURRENT_LIST_DIR}/consumer" "${scratch}/library-alone/build"
          "-Dkelutvbaseclient_PLATFORM_INCLUDE_DIRS=${source_dir}/platform/include"
          "-Dkelutvbaseclient_PLATFORM_LIBRARIES=${escaped_libraries}")

install_to("${prefix}" runtime development platform platform_development)
foreach(file libkelutvbaseclient.so libkelutvbaseclient.so.1)
    if(NOT EXISTS "${prefix}/${libdir}/${file}")
        message(FATAL_ERROR "${file} was not installed")
    endif()
endforeach()

set(ENV{PKG_CONFIG_LIBDIR} "${prefix}/${libdir}/pkgconfig")
compile_by_pkg_config("${scratch}/by_pkg_config" kelutvbaseclient "${CMAKE_CURRENT_LIST_DIR}/consumer/main.c")
run_program("${scratch}/by_pkg_config")
compile_by_pkg_config("${scratch}/link_by_pkg_config" kelutvbaseclient-link "${CMAKE_CURRENT_LIST_DIR}/consumer/link.cpp")
run_program("${scratch}/link_by_pkg_config")

configure("${CMAKE_CURRENT_LIST_DIR}/consumer" "${scratch}/build"
          "-Dkelutvbaseclient_DIR=${prefix}/${libdir}/cmake/kelutvbaseclient")
run("${CMAKE_COMMAND}" --build "${scratch}/build")
foreach(program consumer_c consumer_cpp consumer_link)
    run_program("${scratch}/build/${program}")
endforeach()

# Whoever includes a header of the platform names the other package.
file(GLOB platform_rooms RELATIVE "${source_dir}/platform/include" "${source_dir}/platform/include/*")
list(JOIN platform_rooms "|" platform_rooms)

file(GLOB examples "${source_dir}/examples/*.c" "${source_dir}/examples/*.cpp")
file(COPY ${examples} "${source_dir}/packaging/examples/CMakeLists.txt" DESTINATION "${scratch}/examples")
configure("${scratch}/examples" "${scratch}/examples/build"
          "-Dkelutvbaseclient_DIR=${prefix}/${libdir}/cmake/kelutvbaseclient")
run("${CMAKE_COMMAND}" --build "${scratch}/examples/build")
foreach(example IN LISTS examples)
    cmake_path(GET example STEM name)
    cmake_path(GET example FILENAME file)
    string(REPLACE "." "_" both "${file}")
    if(NOT EXISTS "${scratch}/examples/build/${name}" AND NOT EXISTS "${scratch}/examples/build/${both}")
        message(FATAL_ERROR "packaging/examples/CMakeLists.txt does not build ${file}")
    endif()
    file(STRINGS "${example}" of_the_platform REGEX "^#include <(${platform_rooms}|kelutv/link)/")
    set(package kelutvbaseclient)
    if(of_the_platform)
        set(package kelutvbaseclient-link)
    endif()
    compile_by_pkg_config("${scratch}/examples/${both}" ${package} "${example}")
endforeach()
