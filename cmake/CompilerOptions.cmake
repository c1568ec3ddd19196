# Warnings, sanitizers and hardening of every target.
add_compile_options(-Wall -Wextra -Wpedantic)
if(PANELKIT_WERROR)
  add_compile_options(-Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # At -O3, g++ 12 finds overlaps in texts that are joined, where there are none.
  add_compile_options(-Wno-restrict)
endif()
if(MINGW)
  # At -O3, g++ 12 for Windows takes strings handed over by value for uninitialised ones.
  add_compile_options(-Wno-maybe-uninitialized)
  # No DLL beside those of Windows.
  add_link_options(-static -static-libgcc -static-libstdc++ $<$<CONFIG:Release>:-s>)
elseif(NOT PANELKIT_SANITIZE)
  # The programs read files that strangers made.
  add_compile_options($<$<CONFIG:Release>:-fstack-protector-strong>)
  add_compile_definitions($<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
  add_link_options($<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
endif()
if(PANELKIT_SANITIZE)
  add_compile_options(-fsanitize=${PANELKIT_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${PANELKIT_SANITIZE})
endif()
