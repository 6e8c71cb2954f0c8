# How programs that use <kelutv/link/...> or the platform's own headers find the platform: what the CMake package and the
# pkg-config files name, from the installed stand-ins or from the television's own libraries.
#
# Sets platform_include_dirs and platform_libraries for kelutvbaseclientConfig.cmake; link_requires, link_cflags and
# link_libs for kelutvbaseclient-link.pc.

# pc_words(<variable> <prefix> <word>...): the words for a pkg-config file, each behind the prefix.
function(pc_words variable prefix)
    list(TRANSFORM ARGN REPLACE "([ \\\\\"'])" "\\\\\\1")
    list(TRANSFORM ARGN PREPEND "${prefix}")
    list(JOIN ARGN " " words)
    set(${variable} "${words}" PARENT_SCOPE)
endfunction()

# pc_libraries(<variable> <library>...): a path as it is, like an option; anything else is a library's name.
function(pc_libraries variable)
    set(all "")
    foreach(library IN LISTS ARGN)
        if(NOT IS_ABSOLUTE "${library}" AND NOT library MATCHES "^-")
            string(PREPEND library "-l")
        endif()
        pc_words(word "" "${library}")
        list(APPEND all "${word}")
    endforeach()
    list(JOIN all " " words)
    set(${variable} "${words}" PARENT_SCOPE)
endfunction()

if(KELUTV_STAND_INS)
    set(platform_include_dirs "\${PACKAGE_PREFIX_DIR}/${CMAKE_INSTALL_INCLUDEDIR}/kelutv-platform")
    set(platform_libraries ${stand_ins})
    list(TRANSFORM platform_libraries REPLACE "(.+)" "\${PACKAGE_PREFIX_DIR}/${CMAKE_INSTALL_LIBDIR}/lib\\1.so")
    set(link_requires "kelutvbaseclient, kelutv-platform")
    set(link_cflags "")
    set(link_libs "")
    pc_words(platform_libs "-l" ${stand_ins})
else()
    set(platform_include_dirs "${KELUTV_PLATFORM_SDK_INCLUDE_DIRS}")
    set(platform_libraries "${KELUTV_PLATFORM_SDK_LIBRARIES}")
    set(link_requires kelutvbaseclient)
    pc_words(link_cflags "-I" ${KELUTV_PLATFORM_SDK_INCLUDE_DIRS})
    pc_libraries(link_libs ${KELUTV_PLATFORM_SDK_LIBRARIES})
endif()
