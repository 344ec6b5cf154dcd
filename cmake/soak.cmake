# The soak: thousands of jobs through the finished client's dialog, and what the client then holds of the system.
file(GLOB soak_sources CONFIGURE_DEPENDS tests/system/soak/*.cpp)
add_executable(soak ${soak_sources} tests/system/SystemTest.cpp)
target_link_libraries(soak PRIVATE client_driver gtest_windows)
target_compile_options(soak PRIVATE -O0)
target_link_options(soak PRIVATE -static)
set_target_properties(soak PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
