# The library that drives the finished client from a second process, and the command-line tool on it.
file(GLOB driver_sources CONFIGURE_DEPENDS tests/system/driver/*.cpp)
add_library(client_driver STATIC EXCLUDE_FROM_ALL ${driver_sources})
target_include_directories(client_driver PUBLIC tests/system)
target_link_libraries(client_driver PUBLIC korvanta_options psapi ws2_32)

add_executable(clientdriver EXCLUDE_FROM_ALL tools/clientdriver/clientdriver.cpp)
target_link_libraries(clientdriver PRIVATE client_driver)
target_link_options(clientdriver PRIVATE -static)
set_target_properties(clientdriver PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
