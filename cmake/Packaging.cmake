# What goes into a release beside the programs, and the release itself: one flat folder in an archive,
# which runs where it is unpacked.
set(documents README.md LICENSE NOTICE.md)

install(FILES assets/confused.gif assets/easy.gif assets/madhack.gif DESTINATION .)
if(WIN32)
  # As Notepad wants them.
  foreach(document IN LISTS documents)
    cmake_path(REPLACE_EXTENSION document LAST_ONLY .txt OUTPUT_VARIABLE text)
    configure_file(${document} ${CMAKE_BINARY_DIR}/documents/${text} @ONLY NEWLINE_STYLE CRLF)
    install(FILES ${CMAKE_BINARY_DIR}/documents/${text} DESTINATION .)
  endforeach()
else()
  install(FILES ${documents} DESTINATION .)
endif()

if(WIN32)
  math(EXPR word_size "8 * ${CMAKE_SIZEOF_VOID_P}")
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME panelkit-${PROJECT_VERSION}-win${word_size})
else()
  set(CPACK_GENERATOR TGZ)
  set(CPACK_PACKAGE_FILE_NAME panelkit-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
endif()
set(CPACK_STRIP_FILES ON)
include(CPack)
