# Every call of the platform failing at every point of whole scenarios of the program.
file(GLOB torture_sources CONFIGURE_DEPENDS tests/torture/*.cpp)
add_executable(torture ${torture_sources})
target_link_libraries(torture PRIVATE korvanta_fakes)

foreach(scenario start refresh accept cancel preferences)
  foreach(detection file spooler spooler9x http)
    add_test(NAME "torture: ${scenario}, ${detection}" COMMAND ${with_patience} $<TARGET_FILE:torture>
                                                               --scenario ${scenario} --detection ${detection})
    set_tests_properties("torture: ${scenario}, ${detection}" PROPERTIES TIMEOUT 600 PROCESSORS 2 COST 50)
  endforeach()
endforeach()

# Simulated days, each decided by its seed. Many days want a build without the sanitizers: cmake --preset fast.
find_package(Threads REQUIRED)
file(GLOB simulation_sources CONFIGURE_DEPENDS tests/simulation/*.cpp)
add_executable(simulation ${simulation_sources})
target_link_libraries(simulation PRIVATE korvanta_fakes Threads::Threads)
foreach(first 1 101)
  add_test(NAME "simulation: 100 days from ${first}" COMMAND ${with_patience} $<TARGET_FILE:simulation>
                                                           --first ${first} --seeds 100 --threads 1)
  set_tests_properties("simulation: 100 days from ${first}" PROPERTIES TIMEOUT 600 PROCESSORS 2 COST 100)
endforeach()
