# The tests of the services that the program asks of Windows, against the real ones; the spooler is played.
include(cmake/gtest-windows.cmake)

add_library(played_spooler STATIC tests/system/spooler/PlayedSpooler.cpp)
target_include_directories(played_spooler PUBLIC tests/system)
target_link_libraries(played_spooler PUBLIC korvanta_options)

# Programs import the undecorated names.
add_library(winspool_played SHARED tests/system/spooler/winspool.cpp tests/system/spooler/winspool.def)
target_link_libraries(winspool_played PRIVATE played_spooler)
target_link_options(winspool_played PRIVATE -static -Wl,--kill-at -Wl,--enable-stdcall-fixup)
set_target_properties(winspool_played PROPERTIES PREFIX "" OUTPUT_NAME winspool SUFFIX .drv
                                                 RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin
                                                 ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/played)

file(GLOB services_test_sources CONFIGURE_DEPENDS tests/system/services/*.cpp)
add_executable(services_tests ${services_test_sources})
target_link_libraries(services_tests PRIVATE korvanta_win32 played_spooler gtest_windows)
target_link_options(services_tests PRIVATE -static -Wl,--gc-sections)
set_target_properties(services_tests PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
add_dependencies(services_tests winspool_played)
