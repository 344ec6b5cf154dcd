# The tests of the services that the program asks of Windows, against the real ones; the spooler is played.
include(cmake/gtest-windows.cmake)

file(GLOB services_test_sources CONFIGURE_DEPENDS tests/system/services/*.cpp)
add_executable(services_tests ${services_test_sources})
target_link_libraries(services_tests PRIVATE korvanta_win32 played_spooler gtest_windows)
target_link_options(services_tests PRIVATE -static -Wl,--gc-sections)
set_target_properties(services_tests PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
add_dependencies(services_tests winspool_played)
