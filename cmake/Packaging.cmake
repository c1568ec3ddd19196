# What is installed beside the programs, and the packages: archives, each one folder that runs where it is
# unpacked (PANELKIT_ARCHIVE), and the Debian package.
set(pictures assets/confused.gif assets/easy.gif assets/madhack.gif)

if(WIN32)
  math(EXPR word_size "8 * ${CMAKE_SIZEOF_VOID_P}")
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME panelkit-${PROJECT_VERSION}-win${word_size})
elseif(PANELKIT_ARCHIVE)
  set(CPACK_GENERATOR TGZ)
  set(CPACK_PACKAGE_FILE_NAME panelkit-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
else()
  set(CPACK_GENERATOR DEB)
endif()
set(CPACK_STRIP_FILES ON)
# The programs are built before, maybe without the tests.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

if(PANELKIT_ARCHIVE)
  install(FILES ${pictures} DESTINATION .)
  set(documents packaging/${CMAKE_SYSTEM_NAME}/README.txt LICENSE NOTICE.md CHANGELOG.md
      docs/json.md packaging/GPL-3.txt)
  foreach(document IN LISTS documents)
    cmake_path(GET document FILENAME name)
    if(WIN32)
      # As Notepad wants them.
      cmake_path(REPLACE_EXTENSION name LAST_ONLY .txt)
      set(line_ends CRLF)
    else()
      set(line_ends LF)
    endif()
    configure_file(${document} ${CMAKE_BINARY_DIR}/documents/${name} @ONLY NEWLINE_STYLE ${line_ends})
    install(FILES ${CMAKE_BINARY_DIR}/documents/${name} DESTINATION .)
  endforeach()
else()
  install(FILES ${pictures} DESTINATION ${CMAKE_INSTALL_DATADIR}/panelkit)
  include(DesktopFiles)
  include(DebianPackage)
endif()
include(CPack)
