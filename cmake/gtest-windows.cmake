# GoogleTest and GoogleMock for the Windows compiler, from the sources that the package googletest brings.
include_guard()

set(googletest_folder /usr/src/googletest)
add_library(gtest_windows STATIC ${googletest_folder}/googletest/src/gtest-all.cc
                                 ${googletest_folder}/googlemock/src/gmock-all.cc
                                 ${googletest_folder}/googlemock/src/gmock_main.cc)
target_include_directories(gtest_windows SYSTEM PRIVATE ${googletest_folder}/googletest ${googletest_folder}/googlemock)
target_include_directories(gtest_windows SYSTEM BEFORE PUBLIC ${CMAKE_CURRENT_LIST_DIR}/gtest-windows
                           ${googletest_folder}/googletest/include ${googletest_folder}/googlemock/include)
