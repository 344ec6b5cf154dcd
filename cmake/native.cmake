# Unit tests: the portable rooms under the sanitizers, one program a room.
find_package(GTest REQUIRED)
include(GoogleTest)

file(GLOB fake_sources CONFIGURE_DEPENDS tests/fakes/*.cpp)
add_library(korvanta_fakes STATIC ${fake_sources})
target_include_directories(korvanta_fakes PUBLIC tests)
target_link_libraries(korvanta_fakes PUBLIC korvanta_portable GTest::gmock)

# Prints the texts of the program for translators.
add_executable(catalogue tools/catalogue/catalogue.cpp)
target_link_libraries(catalogue PRIVATE korvanta_fakes)
korvanta_catalogue(${CMAKE_BINARY_DIR}/Korvanta.tam)
set_source_files_properties(tests/unit/app/ShippedCatalogueTest.cpp tests/unit/app/LayoutTest.cpp
                            PROPERTIES COMPILE_DEFINITIONS KORVANTA_CATALOGUE="${CMAKE_BINARY_DIR}/Korvanta.tam")

foreach(room lanes controls common translation server detection ui app)
  file(GLOB_RECURSE test_sources CONFIGURE_DEPENDS tests/unit/${room}/*.cpp)
  if(test_sources)
    add_executable(unit_${room} ${test_sources})
    target_link_libraries(unit_${room} PRIVATE korvanta_fakes GTest::gmock_main)
    add_dependencies(unit_${room} catalogue_file)
    # The headers that every test reads are compiled once.
    if(headers_from)
      target_precompile_headers(unit_${room} REUSE_FROM ${headers_from})
    else()
      set(headers_from unit_${room})
      target_precompile_headers(unit_${room} PRIVATE <gmock/gmock.h> <gtest/gtest.h> <map> <memory> <string> <vector>)
    endif()
    gtest_discover_tests(unit_${room} TEST_PREFIX "${room}: " DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
  endif()
endforeach()

# What keeps a processor busy leaves it to the programs under Wine whenever they want it, and counts as two of the tests
# that run at the same moment: ./test lets three run for each processor.
set(with_patience nice -n 10)
include(cmake/torture.cmake)
include(cmake/checks.cmake)
