# Carries the tutorial out with what is installed in a home directory: tutorial_test.cmake SETTINGS PYTHON PROGRAM

include("${CMAKE_CURRENT_LIST_DIR}/steps.cmake")

set(home "${work_dir}/tutorial")
file(REMOVE_RECURSE "${home}")
install_to("${home}/kelutv" runtime development platform platform_development tools)
run("${CMAKE_ARGV4}" -B "${CMAKE_ARGV5}" "${home}" "${libdir}" "On the television")
file(REMOVE_RECURSE "${home}")
