# The tests that drive the finished client from a second process.
include(cmake/gtest-windows.cmake)

file(GLOB system_test_sources CONFIGURE_DEPENDS tests/system/*.cpp)
add_executable(system_tests ${system_test_sources})
target_link_libraries(system_tests PRIVATE client_driver played_spooler gtest_windows)
# Waiting for the client is all that takes time in them; compiling them should not.
target_compile_options(system_tests PRIVATE -O0)
target_link_options(system_tests PRIVATE -static)
set_target_properties(system_tests PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
add_dependencies(system_tests winspool_played winspool95_played)
