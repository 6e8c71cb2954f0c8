# What is installed of a build over a platform that is handed in: the tool whole, but nothing of the simulator.
#
#     cmake -P installed_test.cmake PREFIX

set(prefix "${CMAKE_ARGV3}")
foreach(file IN ITEMS bin/kelutv lib/kelutv/libkelutvtrace.so share/man/man1/kelutv-call.1
                      share/bash-completion/completions/kelutv share/kelutv/kelutv.schema.json
                      share/kelutv/recording.schema.json)
    if(NOT EXISTS "${prefix}/${file}")
        message(FATAL_ERROR "${file} was not installed")
    endif()
endforeach()
foreach(file IN ITEMS bin/kelutv-simulator share/man/man1/kelutv-sim.1 share/man/man1/kelutv-simulator.1
                      share/bash-completion/completions/kelutv-simulator)
    if(EXISTS "${prefix}/${file}")
        message(FATAL_ERROR "${file} was installed, without the simulator")
    endif()
endforeach()
