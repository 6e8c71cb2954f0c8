# What is installed, in the components runtime, development, tools and python, and platform and platform_development of the
# stand-ins.

include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/kelutvbaseclient")
if(KELUTV_STAND_INS)
    set(stand_ins log kqdroid keluemclient kqcommon)
    # The stand-ins stand beside the library wherever it is installed.
    set_target_properties(kelutvbaseclient ${stand_ins} PROPERTIES INSTALL_RPATH "$ORIGIN")
    install(TARGETS ${stand_ins} LIBRARY COMPONENT platform NAMELINK_COMPONENT platform_development)
    install(
        DIRECTORY "${PROJECT_SOURCE_DIR}/platform/include/"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/kelutv-platform"
        COMPONENT platform_development)
endif()

set_target_properties(kelutv_headers PROPERTIES EXPORT_NAME headers)
set_target_properties(kelutvbaseclient PROPERTIES EXPORT_NAME client)
install(
    TARGETS kelutv_headers kelutvbaseclient
    EXPORT kelutvbaseclientTargets
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development)
install(
    DIRECTORY "${PROJECT_SOURCE_DIR}/include/kelutv"
    TYPE INCLUDE
    COMPONENT development
    FILES_MATCHING
    PATTERN "*.h")

install(
    EXPORT kelutvbaseclientTargets
    NAMESPACE kelutv::
    DESTINATION "${package_dir}"
    COMPONENT development)
include(KelutvPlatformFiles)
configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/kelutvbaseclientConfig.cmake.in" "${PROJECT_BINARY_DIR}/kelutvbaseclientConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/kelutvbaseclientConfigVersion.cmake"
                                 COMPATIBILITY SameMajorVersion)
install(
    FILES "${PROJECT_BINARY_DIR}/kelutvbaseclientConfig.cmake"
          "${PROJECT_BINARY_DIR}/kelutvbaseclientConfigVersion.cmake"
    DESTINATION "${package_dir}"
    COMPONENT development)

file(RELATIVE_PATH pc_prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" pc_prefix "${pc_prefix}")
set(pc_files development kelutvbaseclient development kelutvbaseclient-link)
if(KELUTV_STAND_INS)
    list(APPEND pc_files platform_development kelutv-platform)
endif()
while(pc_files)
    list(POP_FRONT pc_files component name)
    configure_file("${CMAKE_CURRENT_LIST_DIR}/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
    install(
        FILES "${PROJECT_BINARY_DIR}/${name}.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
        COMPONENT ${component})
endwhile()

foreach(program IN ITEMS kelutv kelutv-simulator kqservicemanager)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME COMPONENT tools)
        set_target_properties(${program} PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
    endif()
endforeach()

if(TARGET kqservicemanager)
    install(
        FILES "${PROJECT_SOURCE_DIR}/platform/servicemanager/kqservicemanager.1"
        DESTINATION "${CMAKE_INSTALL_MANDIR}/man1"
        COMPONENT tools)
endif()
set(bash_completions "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
set(fish_completions "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
# Debian's zsh has a folder for what comes in packages.
if(KELUTV_PACKAGES)
    set(zsh_completions "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions")
else()
    set(zsh_completions "${CMAKE_INSTALL_DATADIR}/zsh/site-functions")
endif()
if(TARGET kelutv)
    file(GLOB pages CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tools/man/*.1")
    if(NOT TARGET kelutv-simulator)
        list(FILTER pages EXCLUDE REGEX "/(kelutv-sim|kelutv-simulator)\\.1$")
    endif()
    install(FILES ${pages} DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT tools)
    install(
        FILES "${PROJECT_SOURCE_DIR}/tools/schema/kelutv.schema.json"
              "${PROJECT_SOURCE_DIR}/tools/schema/recording.schema.json"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/kelutv"
        COMPONENT tools)
    foreach(program IN ITEMS kelutv kelutv-simulator)
        if(NOT TARGET ${program})
            continue()
        endif()
        install(
            FILES "${PROJECT_SOURCE_DIR}/tools/completion/kelutv"
            DESTINATION "${bash_completions}"
            RENAME ${program}
            COMPONENT tools)
        install(
            FILES "${PROJECT_SOURCE_DIR}/tools/completion/kelutv.fish"
            DESTINATION "${fish_completions}"
            RENAME ${program}.fish
            COMPONENT tools)
    endforeach()
    install(
        FILES "${PROJECT_SOURCE_DIR}/tools/completion/_kelutv"
        DESTINATION "${zsh_completions}"
        COMPONENT tools)
endif()
if(TARGET kelutv_service_archive)
    install(TARGETS kelutv_service_archive ARCHIVE COMPONENT platform_development)
    install(
        DIRECTORY "${PROJECT_SOURCE_DIR}/service/include/kelutv-service"
        TYPE INCLUDE
        COMPONENT platform_development
        FILES_MATCHING
        PATTERN "*.h")
endif()
if(TARGET kelutv-simulator)
    install(
        FILES "${KELUTV_SIMULATOR_EVENTS_HEADER}"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/kelutv-simulator"
        COMPONENT platform_development)
    install(
        FILES "${PROJECT_SOURCE_DIR}/simulator/configuration/defaults.json"
              "${PROJECT_SOURCE_DIR}/simulator/configuration/config.schema.json"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/kelutv"
        COMPONENT tools)
endif()
if(TARGET kelutv_python)
    include(KelutvPythonInstall)
endif()
