# The tests of forms and controls on the screen: real windows, in the test's own process.
include(cmake/gtest-windows.cmake)

file(GLOB peers_test_sources CONFIGURE_DEPENDS tests/system/peers/*.cpp)
add_executable(peers_tests ${peers_test_sources} tests/unit/app/FailingMemory.cpp
               src/platform/win32/resources/resources.rc)
target_include_directories(peers_tests PRIVATE tests)
target_link_libraries(peers_tests PRIVATE korvanta_win32 gtest_windows)
target_link_options(peers_tests PRIVATE -static -Wl,--gc-sections)
set_target_properties(peers_tests PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
