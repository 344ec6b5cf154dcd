# The tests that drive the finished client from a second process, and the command-line tool on the same library.
include(cmake/gtest-windows.cmake)

file(GLOB driver_sources CONFIGURE_DEPENDS tests/system/driver/*.cpp)
add_library(client_driver STATIC ${driver_sources})
target_include_directories(client_driver PUBLIC tests/system)
target_link_libraries(client_driver PUBLIC korvanta_options)

file(GLOB system_test_sources CONFIGURE_DEPENDS tests/system/*.cpp)
add_executable(system_tests ${system_test_sources})
target_link_libraries(system_tests PRIVATE client_driver gtest_windows)
target_link_options(system_tests PRIVATE -static)

add_executable(clientdriver tools/clientdriver/clientdriver.cpp)
target_link_libraries(clientdriver PRIVATE client_driver)
target_link_options(clientdriver PRIVATE -static)

set_target_properties(system_tests clientdriver PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
