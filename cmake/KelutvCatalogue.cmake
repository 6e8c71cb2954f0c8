# kelutv_generate_from_catalogue(<variable>
#                                GENERATOR <script>    run as: <script> <folder> <prefix>
#                                PREFIX <prefix>
#                                [SUFFIXES <suffix>...] sources <prefix><module><suffix>.cpp that it writes besides
#                                [ALSO <name>...]      sources <prefix><name>.cpp that it writes besides
#                                [DEPENDS <file>...])  what the script needs besides the catalogue
#
# Sets <variable> to one generated source <prefix><module>.cpp per table of the catalogue, and the others.

include_guard(GLOBAL)

function(kelutv_generate_from_catalogue variable)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "GENERATOR;PREFIX" "SUFFIXES;ALSO;DEPENDS")
    find_package(Python3 3.11 REQUIRED COMPONENTS Interpreter)
    set(folder "${PROJECT_SOURCE_DIR}/catalogue")
    file(GLOB tables CONFIGURE_DEPENDS "${folder}/*.md")
    file(GLOB other_inputs CONFIGURE_DEPENDS "${folder}/*.py" "${PROJECT_SOURCE_DIR}/include/kelutv/*.h")

    set(sources "")
    foreach(table IN LISTS tables)
        get_filename_component(module "${table}" NAME_WE)
        if(NOT module MATCHES "^(enumerations|link|README)$")
            foreach(suffix IN ITEMS "" LISTS ARG_SUFFIXES)
                list(APPEND sources "${CMAKE_CURRENT_BINARY_DIR}/${ARG_PREFIX}${module}${suffix}.cpp")
            endforeach()
        endif()
    endforeach()
    foreach(name IN LISTS ARG_ALSO)
        list(APPEND sources "${CMAKE_CURRENT_BINARY_DIR}/${ARG_PREFIX}${name}.cpp")
    endforeach()
    add_custom_command(
        OUTPUT ${sources}
        COMMAND Python3::Interpreter -B "${ARG_GENERATOR}" "${CMAKE_CURRENT_BINARY_DIR}" "${ARG_PREFIX}"
        DEPENDS "${ARG_GENERATOR}" ${ARG_DEPENDS} ${tables} ${other_inputs}
        COMMENT "Generating ${ARG_PREFIX}*.cpp from the catalogue"
        VERBATIM)
    # Thousands of short calls, each made a few times: compiling them well costs more than it gives.
    set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS "-O0;-g0" SKIP_PRECOMPILE_HEADERS ON)
    set(${variable} "${sources}" PARENT_SCOPE)
endfunction()
