# A print spooler that tests play: the library winspool.drv, which a program finds beside itself, and its controls.
include_guard()

add_library(played_spooler STATIC tests/system/spooler/PlayedSpooler.cpp)
target_include_directories(played_spooler PUBLIC tests/system)
target_link_libraries(played_spooler PUBLIC korvanta_options)

# Programs import the undecorated names.
add_library(winspool_played SHARED tests/system/spooler/winspool.cpp tests/system/spooler/winspool.def)
target_link_libraries(winspool_played PRIVATE played_spooler)
target_link_options(winspool_played PRIVATE -static -Wl,--kill-at -Wl,--enable-stdcall-fixup)
set_target_properties(winspool_played PROPERTIES PREFIX "" OUTPUT_NAME winspool SUFFIX .drv
                                                 RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin
                                                 ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/played)
