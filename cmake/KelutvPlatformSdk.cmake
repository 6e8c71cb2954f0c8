# kelutv_platform from the television's own libraries instead of the stand-ins.

add_library(kelutv_platform INTERFACE)
add_library(kelutv::platform ALIAS kelutv_platform)
target_include_directories(kelutv_platform SYSTEM INTERFACE ${KELUTV_PLATFORM_SDK_INCLUDE_DIRS})
target_link_libraries(kelutv_platform INTERFACE ${KELUTV_PLATFORM_SDK_LIBRARIES})
