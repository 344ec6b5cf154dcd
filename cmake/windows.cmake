# The product: one statically linked 32-bit program for Windows 98 to 11.
enable_language(RC)

target_compile_definitions(korvanta_options INTERFACE _WIN32_WINNT=0x0501 WINVER=0x0501 _WIN32_IE=0x0500 NOMINMAX
                                                      WIN32_LEAN_AND_MEAN)
target_compile_options(korvanta_options INTERFACE -ffunction-sections -fdata-sections -fstack-protector-strong
                                                  -gdwarf-4)
target_link_options(korvanta_options INTERFACE -fstack-protector-strong)
# Small code, but for what works through whole account lists.
target_compile_options(korvanta_options INTERFACE $<$<NOT:$<CONFIG:Debug>>:-Os>)
file(GLOB fast_sources CONFIGURE_DEPENDS src/common/*.cpp src/controls/Grid.cpp src/server/search/*.cpp
     src/server/cls*Account*.cpp src/ui/AccountViews.cpp src/ui/ctlAccountList.cpp)
set_source_files_properties(${fast_sources} PROPERTIES COMPILE_OPTIONS $<$<NOT:$<CONFIG:Debug>>:-O2>)
# GCC 12 takes some harmless joining of texts for copying within one text.
target_compile_options(korvanta_options INTERFACE -Wno-restrict)

# The room that knows Windows; the program and the tests of its services are built on it.
file(GLOB win32_sources CONFIGURE_DEPENDS src/platform/win32/*/*.cpp)
add_library(korvanta_win32 STATIC ${win32_sources})
target_link_libraries(korvanta_win32 PUBLIC korvanta_portable comctl32 gdi32 ole32 shell32 wininet winspool wsock32)

# What a resource script takes in is not seen by the build otherwise.
file(GLOB resource_files CONFIGURE_DEPENDS src/platform/win32/resources/*.ico src/platform/win32/resources/*.manifest)
set_source_files_properties(src/platform/win32/resources/resources.rc PROPERTIES OBJECT_DEPENDS
  "${resource_files};${CMAKE_CURRENT_SOURCE_DIR}/src/platform/win32/resources/Resources.h")
add_executable(KorvantaClient WIN32 src/WinMain.cpp src/platform/win32/resources/resources.rc)
target_link_libraries(KorvantaClient PRIVATE korvanta_win32)
target_link_options(KorvantaClient PRIVATE -static -Wl,--gc-sections -Wl,--tsaware -Wl,--no-insert-timestamp)
set_target_properties(KorvantaClient PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

korvanta_catalogue(${CMAKE_SOURCE_DIR}/dist/KorvantaClient/Korvanta.tam)
add_dependencies(KorvantaClient catalogue_file)

# dist/ has what is installed: the program without its debug data, and the catalogue.
add_custom_command(
  TARGET KorvantaClient POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_SOURCE_DIR}/dist/KorvantaClient
  COMMAND ${CMAKE_STRIP} -o ${CMAKE_SOURCE_DIR}/dist/KorvantaClient/KorvantaClient.exe $<TARGET_FILE:KorvantaClient>
  VERBATIM)

include(cmake/client-driver.cmake)
include(cmake/bench-windows.cmake)
include(cmake/played-spooler.cmake)
option(KORVANTA_WINDOWS_TESTS "Build the tests that run under Windows or Wine" OFF)
if(KORVANTA_WINDOWS_TESTS)
  include(cmake/system-tests.cmake)
  include(cmake/soak.cmake)
  include(cmake/services-tests.cmake)
  include(cmake/peers-tests.cmake)
  # So that trying the benchmarks' command takes no time to build.
  add_custom_target(benchmarks ALL DEPENDS windows_bench empty idle)
endif()
