# A print spooler that tests and people play: the library winspool.drv, which a program finds beside itself, and its
# controls, as a library and as a command.
include_guard()

add_library(played_spooler STATIC EXCLUDE_FROM_ALL tools/spooler/PlayedSpooler.cpp)
target_include_directories(played_spooler PUBLIC tools)
target_link_libraries(played_spooler PUBLIC korvanta_options)

# The second one lacks the change notifications, as that of Windows 95 does.
add_library(winspool_calls OBJECT EXCLUDE_FROM_ALL tools/spooler/winspool.cpp)
target_link_libraries(winspool_calls PUBLIC played_spooler)
foreach(library winspool winspool95)
  add_library(${library}_played SHARED EXCLUDE_FROM_ALL tools/spooler/${library}.def)
  target_link_libraries(${library}_played PRIVATE winspool_calls)
  target_link_options(${library}_played PRIVATE -static -Wl,--kill-at -Wl,--enable-stdcall-fixup)
  set_target_properties(${library}_played PROPERTIES PREFIX "" OUTPUT_NAME ${library} SUFFIX .drv
                                                     LINKER_LANGUAGE CXX
                                                     RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin
                                                     ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/played)
endforeach()

add_executable(spooler EXCLUDE_FROM_ALL tools/spooler/spooler.cpp)
target_link_libraries(spooler PRIVATE played_spooler)
target_link_options(spooler PRIVATE -static)
set_target_properties(spooler PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
add_dependencies(spooler winspool_played winspool95_played)
