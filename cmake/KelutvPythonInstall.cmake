# What is installed in the component python, where Debian has packages of Python that are for every version.

set(python_dir "lib/python3/dist-packages")
set(metadata "${KELUTV_PYTHON_FOLDER}/kelutv-${PROJECT_VERSION}.dist-info")
configure_file("${PROJECT_SOURCE_DIR}/python/distribution/METADATA.in" "${metadata}/METADATA" @ONLY)
configure_file("${PROJECT_SOURCE_DIR}/python/distribution/entry_points.txt" "${metadata}/entry_points.txt" COPYONLY)

# The client library stands in the package itself, as in a wheel, or where it is installed.
file(RELATIVE_PATH libraries "/${python_dir}/kelutv" "/${CMAKE_INSTALL_LIBDIR}")
set_target_properties(kelutv_python PROPERTIES INSTALL_RPATH "$ORIGIN/lib:$ORIGIN/${libraries}")
install(TARGETS kelutv_python LIBRARY DESTINATION "${python_dir}/kelutv" COMPONENT python)
foreach(part IN ITEMS kelutv kelutv_station pytest_kelutv)
    install(
        DIRECTORY "${KELUTV_PYTHON_FOLDER}/${part}"
        DESTINATION "${python_dir}"
        COMPONENT python
        FILES_MATCHING
        REGEX "\\.pyi?$|/py\\.typed$"
        PATTERN "__pycache__" EXCLUDE)
endforeach()
foreach(distribution IN ITEMS kelutv pytest_kelutv)
    install(
        DIRECTORY "${KELUTV_PYTHON_FOLDER}/${distribution}-${PROJECT_VERSION}.dist-info"
        DESTINATION "${python_dir}"
        COMPONENT python
        OPTIONAL)
endforeach()
install(PROGRAMS "${PROJECT_SOURCE_DIR}/python/distribution/kelutv-station" TYPE BIN COMPONENT python)
install(
    FILES "${PROJECT_SOURCE_DIR}/python/distribution/kelutv-station.1"
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man1"
    COMPONENT python)
install(
    FILES "${PROJECT_SOURCE_DIR}/python/distribution/kelutv-station.schema.json"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/kelutv"
    COMPONENT python)
set(completion "${PROJECT_SOURCE_DIR}/python/distribution/completion")
install(FILES "${completion}/kelutv-station" DESTINATION "${bash_completions}" COMPONENT python)
install(FILES "${completion}/kelutv-station.fish" DESTINATION "${fish_completions}" COMPONENT python)
install(FILES "${completion}/_kelutv-station" DESTINATION "${zsh_completions}" COMPONENT python)
