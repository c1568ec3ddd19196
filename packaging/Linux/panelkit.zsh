#compdef panelkit
# Completion of panelkit for zsh.
_arguments '--simulator=[the simulator'"'"'s folder]:folder:_files -/' \
  '--prefix=[the Wine prefix to use]:folder:_files -/' \
  '(- *)'{-h,--help}'[print a help]' '(- *)--version[print the version]' \
  '*:folder or archive:_files'
