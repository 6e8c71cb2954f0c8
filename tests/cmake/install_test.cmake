# Installs what a developer needs and builds programs against it, by pkg-config and by find_package().

include("${CMAKE_CURRENT_LIST_DIR}/steps.cmake")

set(scratch "${work_dir}/install")
set(prefix "${scratch}/prefix")
file(REMOVE_RECURSE "${scratch}")
foreach(component runtime development platform platform_development)
    run("${CMAKE_COMMAND}" --install "${build_dir}" --prefix "${prefix}" --component ${component})
endforeach()

foreach(file libkelutvbaseclient.so libkelutvbaseclient.so.1)
    if(NOT EXISTS "${prefix}/${libdir}/${file}")
        message(FATAL_ERROR "${file} was not installed")
    endif()
endforeach()

set(ENV{PKG_CONFIG_LIBDIR} "${prefix}/${libdir}/pkgconfig")
execute_process(
    COMMAND pkg-config --cflags --libs kelutvbaseclient
    OUTPUT_VARIABLE flags
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
compile_c("${scratch}/by_pkg_config" ${flags} "-Wl,-rpath,${prefix}/${libdir}")
run_program("${scratch}/by_pkg_config")

configure("${CMAKE_CURRENT_LIST_DIR}/consumer" "${scratch}/build"
          "-Dkelutvbaseclient_DIR=${prefix}/${libdir}/cmake/kelutvbaseclient")
run("${CMAKE_COMMAND}" --build "${scratch}/build")
run_program("${scratch}/build/consumer_c")
run_program("${scratch}/build/consumer_cpp")
