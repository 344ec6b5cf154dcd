# The benchmarks of the portable code on this machine itself; bench/run runs them.
find_package(benchmark REQUIRED)
add_executable(native_bench bench/native/native_bench.cpp bench/Cases.cpp bench/BareLoops.cpp)
target_include_directories(native_bench PRIVATE bench)
target_link_libraries(native_bench PRIVATE korvanta_portable benchmark::benchmark)
