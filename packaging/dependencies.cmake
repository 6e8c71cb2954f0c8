# Run by CPack before it packs: what the packages depend on, and the symbols file of the library.

include("${CPACK_KELUTV_SETTINGS}")

find_program(dpkg_shlibdeps dpkg-shlibdeps REQUIRED)
find_program(dpkg_gensymbols dpkg-gensymbols REQUIRED)

set(architecture_of_x86_64 amd64)
set(architecture_of_arm armhf)
set(architecture "${architecture_of_${processor}}")
if(NOT architecture)
    message(FATAL_ERROR "packages are made for x86_64 and arm, not for ${processor}")
endif()
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${architecture})

# Each package has its own; CPack would put the project's before it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")

# Both tools look for a Debian source package around them, and read objects of the architecture they are told.
set(source_package "${control_dir}/source")
file(WRITE "${source_package}/debian/control"
     "Source: kelutvbaseclient\n\nPackage: libkelutvbaseclient1\nArchitecture: any\n")
set(as_target "${CMAKE_COMMAND}" -E env "DEB_HOST_ARCH=${architecture}" LC_ALL=C)

set(search "")
foreach(folder IN LISTS cross_root)
    list(APPEND search "-l${folder}/lib")
endforeach()
foreach(library IN LISTS runtime_binaries platform_binaries)
    get_filename_component(folder "${library}" DIRECTORY)
    list(APPEND search "-l${folder}")
endforeach()
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER "${component}" key)
    if(${component}_binaries)
        # The packages' own libraries belong to no installed package; their dependencies have exact versions anyway.
        execute_process(
            COMMAND ${as_target} "${dpkg_shlibdeps}" ${search} --ignore-missing-info --warnings=0 -O
                    ${${component}_binaries}
            WORKING_DIRECTORY "${source_package}"
            RESULT_VARIABLE result
            OUTPUT_VARIABLE depends
            ERROR_VARIABLE complaints
            OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(NOT result EQUAL 0)
            message(FATAL_ERROR "the dependencies of ${component} are not known:\n${complaints}")
        endif()
        # Packages of libraries for cross builds have names of their own and tell less of versions: the compiler's are
        # theirs.
        string(REGEX REPLACE ":${architecture}|-${architecture}-cross" "" depends "${depends}")
        string(REGEX REPLACE "(libstdc\\+\\+6)(,|$)" "\\1 (>= ${compiler_version})\\2" depends "${depends}")
        string(REGEX REPLACE "^shlibs:Depends=" "" depends "${depends}")
        if(${component}_needs)
            string(APPEND depends ", ${${component}_needs}")
        endif()
        set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}")
    endif()
endforeach()

# The version of the package is later than that of any listed symbol: only so a missing one is an error.
execute_process(
    COMMAND ${as_target} "${dpkg_gensymbols}" -plibkelutvbaseclient1 "-v${debian_version}" "-a${architecture}" -c4
            "-I${packaging}/libkelutvbaseclient1.symbols" "-e${client_library}" "-O${control_dir}/runtime/symbols"
    WORKING_DIRECTORY "${source_package}"
    RESULT_VARIABLE result
    OUTPUT_VARIABLE difference
    ERROR_VARIABLE difference)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "the library does not export what packaging/libkelutvbaseclient1.symbols lists:\n${difference}")
endif()
