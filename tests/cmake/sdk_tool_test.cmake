# Builds library and tool against an SDK, the installed stand-ins, as for a real television, and uses the tool.

include("${CMAKE_CURRENT_LIST_DIR}/steps.cmake")

set(scratch "${work_dir}/sdk_tool")
set(sdk "${scratch}/platform-sdk")
set(prefix "${scratch}/prefix")
file(REMOVE_RECURSE "${scratch}")
foreach(component platform platform_development)
    run("${CMAKE_COMMAND}" --install "${build_dir}" --prefix "${sdk}" --component ${component})
endforeach()
list(TRANSFORM sdk_libraries REPLACE ".*/" "${sdk}/${libdir}/")
string(REPLACE ";" "\\;" escaped_libraries "${sdk_libraries}")
configure("${source_dir}" "${scratch}" "-DKELUTV_PLATFORM_SDK_INCLUDE_DIRS=${sdk}/include/kelutv-platform"
          "-DKELUTV_PLATFORM_SDK_LIBRARIES=${escaped_libraries}" -DKELUTV_BUILD_EXAMPLES=OFF
          "-DCMAKE_INSTALL_LIBDIR=${libdir}")
run("${CMAKE_COMMAND}" --build "${scratch}")
foreach(room platform simulator tests)
    if(EXISTS "${scratch}/${room}")
        message(FATAL_ERROR "${room} was built although platform libraries were given")
    endif()
endforeach()

run("${CMAKE_COMMAND}" --install "${scratch}" --prefix "${prefix}")
foreach(file bin/kelutv "${libdir}/kelutv/libkelutvtrace.so" share/man/man1/kelutv-call.1
             share/bash-completion/completions/kelutv)
    if(NOT EXISTS "${prefix}/${file}")
        message(FATAL_ERROR "${file} was not installed")
    endif()
endforeach()
foreach(file share/man/man1/kelutv-sim.1 share/man/man1/kelutv-simulator.1
             share/bash-completion/completions/kelutv-simulator)
    if(EXISTS "${prefix}/${file}")
        message(FATAL_ERROR "${file} was installed, without the simulator")
    endif()
endforeach()

# tool(<exit code> <pattern of both outputs> <argument>...)
function(tool expected pattern)
    execute_process(
        COMMAND "${prefix}/bin/kelutv" ${ARGN}
        RESULT_VARIABLE exit
        OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(NOT exit EQUAL expected OR NOT output MATCHES "${pattern}")
        message(FATAL_ERROR "kelutv ${ARGN}: ${exit}, ${output}")
    endif()
endfunction()

# A path from the root is needed, so that nothing is made in this one.
set(ENV{KQDROID_RUNTIME_DIR} nowhere)
set(ENV{KQDROID_TRANSPORT} sockets)
set(ENV{LD_LIBRARY_PATH} "${sdk}/${libdir}")
tool(0 "^0000400016000000[0-9a-f]*082000000000000023000000\n$" encode audio.setVolume speaker 35)
tool(2 "^kelutv: this build of kelutv has no simulator to drive\n$" sim show)
tool(2 "^kelutv: this build of kelutv has no simulator to drive\n$" sim --file nothing)
tool(0 "not in this build" sim --help)
tool(3 "^kelutv: there is no television service[^\n]*\n[^\n]*\n  no service TVBaseService in nowhere/services\n$" status)
# The tool finds the trace library.
tool(3 "no service TVBaseService" trace -- "${prefix}/bin/kelutv" status)
file(REMOVE_RECURSE ${runtime_dir})
