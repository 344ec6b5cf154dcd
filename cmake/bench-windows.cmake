# The benchmarks under Windows or Wine; bench/run runs them.
add_executable(windows_bench EXCLUDE_FROM_ALL bench/windows/windows_bench.cpp bench/windows/ScreenCases.cpp
                             bench/windows/StartCase.cpp bench/Cases.cpp bench/BareLoops.cpp
                             src/platform/win32/resources/resources.rc)
target_include_directories(windows_bench PRIVATE bench tests)
target_link_libraries(windows_bench PRIVATE korvanta_win32 client_driver)
add_executable(empty EXCLUDE_FROM_ALL WIN32 bench/windows/empty.cpp)
add_executable(idle EXCLUDE_FROM_ALL WIN32 bench/windows/idle.cpp)
foreach(program windows_bench empty idle)
  target_link_options(${program} PRIVATE -static -Wl,--gc-sections)
  set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
endforeach()
# What the product is compared with has the compiler's best.
set_source_files_properties(bench/Cases.cpp bench/BareLoops.cpp bench/windows/windows_bench.cpp
                            bench/windows/ScreenCases.cpp PROPERTIES COMPILE_OPTIONS -O2)
