# Debian packages, one per component, for scripts/make-packages.

set(packaging "${PROJECT_SOURCE_DIR}/packaging")
set(debian_release 1)
set(debian_version "${PROJECT_VERSION}-${debian_release}")

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${packaging}/changelog")
file(STRINGS "${packaging}/changelog" newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^kelutvbaseclient \\(${debian_version}\\) ")
    message(FATAL_ERROR "packaging/changelog begins with '${newest}' instead of an entry for ${debian_version}")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kelutvbaseclient)
set(CPACK_PACKAGE_VENDOR kelutv)
set(CPACK_PACKAGE_CONTACT "kelutv maintainers <maintainers@kelutv.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PROJECT_CONFIG_FILE "${packaging}/dependencies.cmake")
set(CPACK_PRE_BUILD_SCRIPTS "${packaging}/finish_staging.cmake")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${debian_release})
set(CPACK_DEBIAN_PACKAGE_SOURCE kelutvbaseclient)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

# kelutv_package(<component> <package> <section> "<summary>" "<description>"
#                MULTI_ARCH <same|foreign|no>
#                [DEPENDS <component>...]   packages of the same version
#                [NEEDS <package>]          packages of others that no binary tells of
#                [SUGGESTS <package>]
#                [BINARIES <target>...])    what other libraries are depended on
function(kelutv_package component package section summary description)
    cmake_parse_arguments(PARSE_ARGV 5 ARG "" "MULTI_ARCH;SUGGESTS;NEEDS" "DEPENDS;BINARIES")
    string(TOUPPER "${component}" key)
    set(binaries "")
    foreach(target IN LISTS ARG_BINARIES)
        list(APPEND binaries "$<TARGET_FILE:${target}>")
    endforeach()
    set_property(GLOBAL APPEND_STRING PROPERTY kelutv_package_binaries
                                               "set(${component}_binaries \"${binaries}\")
set(${component}_needs \"${ARG_NEEDS}\")\n")

    set_property(GLOBAL APPEND PROPERTY kelutv_package_programs ${ARG_BINARIES})

    install(
        FILES "${packaging}/copyright" "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${packaging}/changelog"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}"
        COMPONENT ${component})
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${package} PARENT_SCOPE)
    # CPack has no variable for the second field.
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION "${section}\nMulti-Arch: ${ARG_MULTI_ARCH}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_SUGGESTS "${ARG_SUGGESTS}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_DESCRIPTION "${summary}\n${description}" PARENT_SCOPE)
    set(CPACK_COMPONENT_${key}_DEPENDS ${ARG_DEPENDS} PARENT_SCOPE)
    set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
endfunction()

set(CPACK_COMPONENTS_ALL "")
kelutv_package(
    runtime libkelutvbaseclient1 libs "client library of the television's base service"
    "Reads and changes the television's state and tells of its events: every
operation is one command to the TV base service. This package is what
programs need at run time."
    MULTI_ARCH same
    DEPENDS platform
    BINARIES kelutvbaseclient)
kelutv_package(
    development libkelutvbaseclient-dev libdevel "client library of the television's base service - development"
    "Headers, the pkg-config and CMake files, and examples, for programs that
talk to the TV base service."
    MULTI_ARCH same
    DEPENDS runtime
    SUGGESTS "libkelutv-platform-dev, kelutv-tools")
kelutv_package(
    platform libkelutv-platform1 libs "stand-ins of the television's platform libraries"
    "Binder runtime, event manager, log and port tables under the names that
they have on the television, for computers that have none of them."
    MULTI_ARCH same
    BINARIES ${stand_ins})
kelutv_package(
    platform_development libkelutv-platform-dev libdevel "stand-ins of the television's platform libraries - development"
    "Headers of the stand-ins, for programs that use the television's binder
runtime, events, log or port tables themselves, and what a service of a
television is built on."
    MULTI_ARCH same
    DEPENDS platform development)
kelutv_package(
    tools kelutv-tools utils "command-line tool and simulated television"
    "kelutv does at a shell what the client library does in a program.
kelutv-simulator is a television to develop against, kqservicemanager the
binder's name service where the system has none."
    MULTI_ARCH foreign
    DEPENDS runtime platform
    BINARIES kelutv kelutv-simulator kqservicemanager kelutvtrace)
if(TARGET kelutv_python)
    kelutv_package(
        python python3-kelutv python "television's functions and events for Python"
        "Every function of the client library, the events, the simulated
television and the tool for programs in Python; a plugin of pytest; and
kelutv-station, which tests televisions side by side."
        MULTI_ARCH no
        DEPENDS runtime platform
        NEEDS "python3 (>= 3.11), python3-cffi-backend (>= 1.15)"
        SUGGESTS "kelutv-tools, python3-pytest"
        BINARIES kelutv_python)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA "${packaging}/python/postinst" "${packaging}/python/prerm")
endif()

file(GLOB examples CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/examples/*.c" "${PROJECT_SOURCE_DIR}/examples/*.cpp")
install(
    FILES ${examples} "${packaging}/examples/CMakeLists.txt"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/libkelutvbaseclient-dev/examples"
    COMPONENT development)

# Control files of the two library packages.
set(control_dir "${PROJECT_BINARY_DIR}/packages")
foreach(component IN ITEMS runtime platform)
    file(WRITE "${control_dir}/${component}/triggers" "activate-noawait ldconfig\n")
endforeach()
file(WRITE "${control_dir}/runtime/shlibs"
     "libkelutvbaseclient ${PROJECT_VERSION_MAJOR} libkelutvbaseclient1 (>= ${PROJECT_VERSION})\n")
file(WRITE "${control_dir}/platform/shlibs"
     "libkqdroid ${PROJECT_VERSION_MAJOR} libkelutv-platform1 (>= ${PROJECT_VERSION})\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${control_dir}/runtime/triggers" "${control_dir}/runtime/shlibs"
                                               "${control_dir}/runtime/symbols")
set(CPACK_DEBIAN_PLATFORM_PACKAGE_CONTROL_EXTRA "${control_dir}/platform/triggers" "${control_dir}/platform/shlibs")

string(REGEX MATCH "^[0-9]+" compiler_version "${CMAKE_CXX_COMPILER_VERSION}")
get_property(package_binaries GLOBAL PROPERTY kelutv_package_binaries)
file(
    GENERATE
    OUTPUT "${control_dir}/settings.cmake"
    CONTENT
        "${package_binaries}set(client_library \"$<TARGET_FILE:kelutvbaseclient>\")
set(processor \"${CMAKE_SYSTEM_PROCESSOR}\")
set(cross_root \"${CMAKE_FIND_ROOT_PATH}\")
set(compiler_version \"${compiler_version}\")
set(control_dir \"${control_dir}\")
set(packaging \"${packaging}\")
set(debian_version \"${debian_version}\")
")
set(CPACK_KELUTV_SETTINGS "${control_dir}/settings.cmake")

# What has to be built before CPack can pack.
get_property(package_programs GLOBAL PROPERTY kelutv_package_programs)
add_custom_target(package-programs DEPENDS ${package_programs} kelutv_service_archive)

include(CPack)
