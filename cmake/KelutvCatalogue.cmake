# kelutv_generate_from_catalogue(<variable>
#                                GENERATOR <script>     run as: <script> <folder>
#                                SOURCES <name>...      what it writes there; % stands for the name of each module
#                                [DEPENDS <file>...])   what the script needs besides the catalogue and wire/generator
#
# Sets <variable> to the generated sources, in the binary folder.

include_guard(GLOBAL)

function(kelutv_generate_from_catalogue variable)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "GENERATOR" "SOURCES;DEPENDS")
    kelutv_find_python()
    set(folder "${PROJECT_SOURCE_DIR}/catalogue")
    file(GLOB tables CONFIGURE_DEPENDS "${folder}/*.md")
    file(GLOB other_inputs CONFIGURE_DEPENDS "${folder}/*.py" "${PROJECT_SOURCE_DIR}/wire/generator/*.py"
         "${PROJECT_SOURCE_DIR}/include/kelutv/*.h")

    set(modules "")
    foreach(table IN LISTS tables)
        get_filename_component(module "${table}" NAME_WE)
        if(NOT module MATCHES "^(enumerations|events|link|README)$")
            list(APPEND modules "${module}")
        endif()
    endforeach()

    set(sources "")
    foreach(name IN LISTS ARG_SOURCES)
        if(name MATCHES "%")
            foreach(module IN LISTS modules)
                string(REPLACE "%" "${module}" source "${name}")
                list(APPEND sources "${CMAKE_CURRENT_BINARY_DIR}/${source}")
            endforeach()
        else()
            list(APPEND sources "${CMAKE_CURRENT_BINARY_DIR}/${name}")
        endif()
    endforeach()
    add_custom_command(
        OUTPUT ${sources}
        COMMAND Python3::Interpreter -B "${ARG_GENERATOR}" "${CMAKE_CURRENT_BINARY_DIR}"
        DEPENDS "${ARG_GENERATOR}" ${ARG_DEPENDS} ${tables} ${other_inputs}
        COMMENT "Generating from the catalogue: ${ARG_SOURCES}"
        VERBATIM)
    kelutv_compile_plainly(${sources})
    set(${variable} "${sources}" PARENT_SCOPE)
endfunction()

# kelutv_compile_plainly(<source>...): thousands of rows and short calls, each used a few times; compiling them well
# costs more than it gives. To be called in the folder of the target, too, when that is another.
function(kelutv_compile_plainly)
    set_source_files_properties(${ARGN} PROPERTIES GENERATED ON COMPILE_OPTIONS "-O0;-g0" SKIP_PRECOMPILE_HEADERS ON)
endfunction()
