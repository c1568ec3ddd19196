# header_only_library(NAME ENTRY...): an interface target for a library of the host system that is used by its
# headers alone: the entries (files or folders) of one include folder, the system's or one of
# CMAKE_PREFIX_PATH. They are reached through links in the build folder, so that a cross compiler sees them
# without the host's C headers beside them.
function(header_only_library name first)
  find_path(${name}_INCLUDE_DIR ${first} PATHS /usr/local/include /usr/include NO_CMAKE_FIND_ROOT_PATH
            REQUIRED DOC "The folder that holds ${first}")
  set(place ${CMAKE_BINARY_DIR}/header-only/${name})
  file(MAKE_DIRECTORY ${place})
  foreach(entry IN ITEMS ${first} LISTS ARGN)
    file(CREATE_LINK ${${name}_INCLUDE_DIR}/${entry} ${place}/${entry} SYMBOLIC)
  endforeach()
  add_library(${name} INTERFACE)
  target_include_directories(${name} SYSTEM INTERFACE ${place})
endfunction()
