# Run by CPack on the installed files before they are packed: what Debian asks of them and a plain install does not do.

find_program(gzip gzip REQUIRED)

file(GLOB_RECURSE pages "${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/*.1")
file(GLOB changelogs "${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/CHANGELOG.md")
foreach(changelog IN LISTS changelogs)
    get_filename_component(folder "${changelog}" DIRECTORY)
    file(RENAME "${folder}/changelog" "${folder}/changelog.Debian")
    file(RENAME "${changelog}" "${folder}/changelog")
    list(APPEND pages "${folder}/changelog" "${folder}/changelog.Debian")
endforeach()
execute_process(COMMAND "${gzip}" -9n ${pages} COMMAND_ERROR_IS_FATAL ANY)

# Installed libraries are where the system's loader looks.
file(GLOB_RECURSE objects "${CPACK_TEMPORARY_DIRECTORY}/*/usr/lib/*.so*" "${CPACK_TEMPORARY_DIRECTORY}/*/usr/bin/*")
foreach(object IN LISTS objects)
    if(NOT IS_SYMLINK "${object}" AND NOT object MATCHES "\\.cmake$")
        file(RPATH_REMOVE FILE "${object}")
    endif()
endforeach()
