# Korvanta.tam, the catalogue that is shipped, from the languages in packaging/catalogue.
find_program(KORVANTA_ICONV iconv REQUIRED)
file(GLOB catalogue_sources CONFIGURE_DEPENDS packaging/catalogue/*.txt)

function(korvanta_catalogue file)
  add_custom_command(
    OUTPUT ${file}
    COMMAND ${CMAKE_COMMAND} -DICONV=${KORVANTA_ICONV} -DOUTPUT=${file} "-DSOURCES=${catalogue_sources}"
            -P ${CMAKE_SOURCE_DIR}/cmake/write-catalogue.cmake
    DEPENDS ${catalogue_sources} ${CMAKE_SOURCE_DIR}/cmake/write-catalogue.cmake
    VERBATIM)
  add_custom_target(catalogue_file ALL DEPENDS ${file})
endfunction()
