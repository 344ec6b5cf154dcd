# Every call of the platform failing at every point of whole scenarios of the program.
file(GLOB torture_sources CONFIGURE_DEPENDS tests/torture/*.cpp)
add_executable(torture ${torture_sources})
target_link_libraries(torture PRIVATE korvanta_fakes)

foreach(scenario start refresh accept cancel preferences)
  foreach(detection file spooler spooler9x http)
    add_test(NAME "torture: ${scenario}, ${detection}" COMMAND torture --scenario ${scenario} --detection ${detection})
    set_tests_properties("torture: ${scenario}, ${detection}" PROPERTIES TIMEOUT 600)
  endforeach()
endforeach()
