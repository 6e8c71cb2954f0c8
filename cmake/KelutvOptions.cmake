# What is built. An option that cannot be had is off; to ask for it all the same ends the configuration.

include_guard(GLOBAL)

# kelutv_option(<name> <help> <default> [NEEDS <variable> <what it is>]...)
#
# An option as option() makes it, with the default, where every <variable> is on. Where one is off, so is the option, and it
# is an error to ask for it. What was only the default of an earlier configuration is not asked for.
function(kelutv_option name help default)
    cmake_parse_arguments(PARSE_ARGV 3 ARG "" "" "NEEDS")
    get_property(type CACHE ${name} PROPERTY TYPE)
    set(is_asked_for OFF)
    if(DEFINED ${name} AND NOT (type STREQUAL "BOOL" AND KELUTV_DEFAULT_OF_${name}))
        set(is_asked_for ON)
    endif()
    while(ARG_NEEDS)
        list(POP_FRONT ARG_NEEDS variable what)
        if(${variable})
            continue()
        endif()
        if(is_asked_for AND ${name})
            message(FATAL_ERROR "${name} is on and needs ${what}")
        endif()
        set(${name} OFF PARENT_SCOPE)
        return()
    endwhile()
    option(${name} "${help}" ${default})
    if(is_asked_for)
        unset(KELUTV_DEFAULT_OF_${name} CACHE)
    else()
        set(KELUTV_DEFAULT_OF_${name} ON CACHE INTERNAL "${name} has its default")
    endif()
endfunction()
