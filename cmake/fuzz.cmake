# Fuzzers: the portable rooms over the fakes, one program for each format that comes from outside. Only the product's own
# code is watched for what an input reaches.
target_compile_options(korvanta_portable PRIVATE -fsanitize=fuzzer-no-link)

file(GLOB fake_sources CONFIGURE_DEPENDS tests/fakes/*.cpp)
add_library(korvanta_fuzzing STATIC tests/fuzz/Fuzzing.cpp ${fake_sources})
target_include_directories(korvanta_fuzzing PUBLIC tests)
target_link_libraries(korvanta_fuzzing PUBLIC korvanta_portable)

file(GLOB fuzzer_sources CONFIGURE_DEPENDS tests/fuzz/*_fuzzer.cpp)
foreach(source ${fuzzer_sources})
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} ${source})
  target_link_libraries(${name} PRIVATE korvanta_fuzzing)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endforeach()
