# What ctest runs beside the unit tests: the checks of the source, the tests of the tools, and the system tests with what
# the Windows build has left.
set(KORVANTA_WINDOWS_BUILD ${CMAKE_SOURCE_DIR}/build/windows CACHE PATH "The build folder of the Windows program")
set(client_program ${CMAKE_SOURCE_DIR}/dist/KorvantaClient/KorvantaClient.exe)

add_test(NAME "house: the rules" COMMAND ${CMAKE_SOURCE_DIR}/tools/check-house --program ${client_program})
# A room at a time.
file(GLOB_RECURSE product_sources CONFIGURE_DEPENDS src/*.cpp)
set(rooms)
foreach(source ${product_sources})
  get_filename_component(room ${source} DIRECTORY)
  list(APPEND rooms ${room})
endforeach()
list(REMOVE_DUPLICATES rooms)
foreach(room ${rooms})
  file(RELATIVE_PATH name ${CMAKE_SOURCE_DIR} ${room})
  add_test(NAME "house: clang-tidy, ${name}" COMMAND ${with_patience} ${CMAKE_SOURCE_DIR}/tools/tidy --jobs 1 ${room})
  set_tests_properties("house: clang-tidy, ${name}" PROPERTIES TIMEOUT 600 PROCESSORS 2 COST 150)
endforeach()

# Python tests are found by their folders.
file(GLOB python_test_folders CONFIGURE_DEPENDS tools/tests tools/*/tests tests/fuzz/tests tests/breakages/tests
                                                bench/tests)
foreach(folder ${python_test_folders})
  file(RELATIVE_PATH subject ${CMAKE_SOURCE_DIR} ${folder})
  add_test(NAME "tools: ${subject}" COMMAND python3 -B -m unittest discover -s ${folder} WORKING_DIRECTORY ${folder})
endforeach()

# Each fuzzer for a short while, with the programs that the fuzz build has left.
file(GLOB fuzzer_sources CONFIGURE_DEPENDS tests/fuzz/*_fuzzer.cpp)
foreach(source ${fuzzer_sources})
  get_filename_component(name ${source} NAME_WE)
  string(REGEX REPLACE "_fuzzer$" "" name ${name})
  add_test(NAME "fuzz: ${name}" COMMAND ${with_patience} ${CMAKE_SOURCE_DIR}/tests/fuzz/run-fuzzers
                                        --no-build --only ${name} --seconds 20)
  set_tests_properties("fuzz: ${name}" PROPERTIES TIMEOUT 300 PROCESSORS 2 COST 20)
endforeach()

# Under Wine. They mostly wait for windows and timers, so they begin first and run beside all the rest; two at a time, for
# each has several clients at work.
set(run_system_tests ${CMAKE_SOURCE_DIR}/tests/system/run-system-tests)
add_test(NAME "system: the services of Windows"
         COMMAND ${CMAKE_SOURCE_DIR}/tests/system/services/run-services-tests
                 --folder ${CMAKE_BINARY_DIR}/services-tests ${KORVANTA_WINDOWS_BUILD}/bin/services_tests.exe)
add_test(NAME "system: forms and controls on the screen"
         COMMAND ${CMAKE_SOURCE_DIR}/tests/system/peers/run-peers-tests
                 --folder ${CMAKE_BINARY_DIR}/peers-tests ${KORVANTA_WINDOWS_BUILD}/bin/peers_tests.exe)
add_test(NAME "system: the finished client"
         COMMAND ${run_system_tests} --folder ${CMAKE_BINARY_DIR}/system-tests
                 ${KORVANTA_WINDOWS_BUILD}/bin/system_tests.exe ${client_program})
add_test(NAME "system: a soak of 50 jobs"
         COMMAND ${CMAKE_SOURCE_DIR}/tests/system/run-soak --jobs 50 --folder ${CMAKE_BINARY_DIR}/soak
                 ${KORVANTA_WINDOWS_BUILD}/bin/soak.exe ${client_program})
add_test(NAME "system: the finished client as Windows 98 shows it"
         COMMAND ${run_system_tests} --folder ${CMAKE_BINARY_DIR}/system-tests-98 --windows98
                 --filter KeyboardTest.*:PopupTest.*:QueueTest.*
                 ${KORVANTA_WINDOWS_BUILD}/bin/system_tests.exe ${client_program})
# The others have web servers of their own making; this one is what administrators use.
add_test(NAME "system: HTTP monitoring with nginx" COMMAND ${CMAKE_SOURCE_DIR}/run --http --virtual)
set_tests_properties("system: the finished client" PROPERTIES TIMEOUT 900 COST 1000 RESOURCE_LOCK "first screen")
set_tests_properties("system: the finished client as Windows 98 shows it"
                     PROPERTIES TIMEOUT 900 COST 900 RESOURCE_LOCK "first screen")
# The last two of these also look after the build of the Windows program.
set_tests_properties("system: the services of Windows" "system: forms and controls on the screen"
                     "system: a soak of 50 jobs" "system: HTTP monitoring with nginx" "tools: bench/tests"
                     PROPERTIES TIMEOUT 900 COST 800 RESOURCE_LOCK "second screen")
