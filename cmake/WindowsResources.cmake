# program_resources(TARGET FILE TITLE PICTURES): gives a program for Windows its icon, manifest and
# version information, and the pictures named by lines of a resource script.
enable_language(RC)

function(program_resources target program_file program_title program_pictures)
  set(program_name ${target})
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  configure_file(${CMAKE_SOURCE_DIR}/src/platform/win32/version.rc.in ${script} @ONLY)
  target_sources(${target} PRIVATE ${script})
  set_source_files_properties(${script} TARGET_DIRECTORY ${target} PROPERTIES
    INCLUDE_DIRECTORIES "${CMAKE_SOURCE_DIR}/assets;${CMAKE_SOURCE_DIR}/src/platform/win32"
    OBJECT_DEPENDS "${CMAKE_SOURCE_DIR}/assets/panelkit.ico;${CMAKE_SOURCE_DIR}/assets/about.bmp;${CMAKE_SOURCE_DIR}/src/platform/win32/panelkit.manifest")
endfunction()
