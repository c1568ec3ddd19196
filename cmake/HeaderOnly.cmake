# header_only_library(NAME FOLDER): an interface target for a header-only library of the host system.
# Its headers are reached through a link in the build folder, so that a cross compiler sees them
# without the host's C headers beside them.
function(header_only_library name folder)
  if(NOT EXISTS /usr/include/${folder})
    message(FATAL_ERROR "${name}: /usr/include/${folder} is missing")
  endif()
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/header-only/${name})
  file(CREATE_LINK /usr/include/${folder} ${CMAKE_BINARY_DIR}/header-only/${name}/${folder} SYMBOLIC)
  add_library(${name} INTERFACE)
  target_include_directories(${name} SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/header-only/${name})
endfunction()
