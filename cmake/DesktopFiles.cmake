# What a Linux desktop and its shells look for beside an installed program: menu entry, icons, description
# of the software, manual pages, completions.
set(linux ${CMAKE_SOURCE_DIR}/packaging/Linux)
set(made ${CMAKE_BINARY_DIR}/documents)

# compressed(SOURCE NAME FOLDER): installs SOURCE, its variables filled in, as FOLDER/NAME.gz.
find_program(GZIP gzip REQUIRED)
function(compressed source name folder)
  configure_file(${source} ${made}/${name} @ONLY)
  execute_process(COMMAND ${GZIP} -9nkf ${made}/${name} COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${made}/${name}.gz DESTINATION ${folder})
endfunction()

# The releases that the change log names, newest first.
file(STRINGS CHANGELOG.md headings REGEX "^## \\[[0-9]")
list(GET headings 0 newest)
if(NOT newest MATCHES "^## \\[${PROJECT_VERSION}\\] - (.*)$")
  message(FATAL_ERROR "CHANGELOG.md's newest release is not ${PROJECT_VERSION}: ${newest}")
endif()
set(release_date ${CMAKE_MATCH_1})

set(programs panelkit-console)
if(PANELKIT_WINDOW)
  list(APPEND programs panelkit)
  install(FILES ${linux}/panelkit.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)

  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  foreach(size 48 64 128 256)
    install(FILES assets/panelkit-${size}.png DESTINATION ${icons}/${size}x${size}/apps
            RENAME panelkit.png)
  endforeach()
  install(FILES assets/panelkit-scalable.svg DESTINATION ${icons}/scalable/apps RENAME panelkit.svg)

  list(TRANSFORM headings REPLACE "^## \\[(.*)\\] - (.*)$"
       "    <release version=\"\\1\" date=\"\\2\"/>")
  list(JOIN headings "\n" releases)
  configure_file(${linux}/metainfo.xml.in ${made}/example.panelkit.panelkit.metainfo.xml @ONLY)
  install(FILES ${made}/example.panelkit.panelkit.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endif()

set(PANELKIT_ZSH_COMPLETIONS ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING
    "Folder of zsh completions, which some distributions have elsewhere")
foreach(program IN LISTS programs)
  compressed(${linux}/${program}.1 ${program}.1 ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${linux}/${program}.bash RENAME ${program}
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${linux}/${program}.zsh RENAME _${program} DESTINATION ${PANELKIT_ZSH_COMPLETIONS})
  install(FILES ${linux}/${program}.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
endforeach()
