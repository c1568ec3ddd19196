#compdef panelkit-console
# Completion of panelkit-console for zsh.
local -a common
common=(
  '--simulator=[the simulator'"'"'s folder]:folder:_files -/'
  '--prefix=[the Wine prefix to use]:folder:_files -/'
  '--format=[how a report is printed]:format:(text html json)'
  '(- *)'{-h,--help}'[print a help]'
  '(- *)--version[print the version]'
)

_panelkit_console_commands() {
  local -a commands
  commands=(
    'where:tell which simulator would be used'
    'probe:report missing gauges'
    'show:report every gauge of every panel'
    'clean:move gauges that no panel names to SpareGauges'
    'restore:bring gauges back from SpareGauges'
    'find:look for missing gauges in folders and archives'
    'brake:say or switch whether the red brake messages are shown'
    'cab:look into a cabinet file'
  )
  _describe command commands
}

_panelkit_console_cab() {
  local -a commands
  commands=(
    'count:count the entries'
    'list:list the entries'
    'xml:list the entries as XML'
    'extract:extract the entries'
  )
  _arguments -C $common '1:cabinet command:(($commands))' '*::argument:->arguments'
  case $state:$words[1] in
    arguments:extract)
      _arguments $common '1:cabinet:_files' '2:entry' \
        '--output-path=[folder to extract to]:folder:_files -/' \
        '--output-file=[name to give]:name'
      ;;
    arguments:*) _arguments $common '1:cabinet:_files' '2:entry' ;;
  esac
}

local state
local -a words_of_line
_arguments -C $common '1:command:_panelkit_console_commands' '*::argument:->arguments' && return
case $words[1] in
  clean)
    _arguments $common '--dry-run[say what would move, and move nothing]' \
      '--careful[leave what a panel names in whatever way]'
    ;;
  where) _arguments $common '--all[tell of every simulator that is registered]' ;;
  probe)
    _arguments $common '--hints[say what this machine has that comes close]' \
      '--careful[tell what panels name in other ways]'
    ;;
  show) _arguments $common '--careful[tell what panels name in other ways]' ;;
  find)
    _arguments $common '--install[copy the best to Gauges]' '--dry-run[copy nothing]' \
      '*--as[copy what is nearly named so under this name]:missing file:' \
      '--careful[tell what panels name in other ways]' '*:folder or file:_files'
    ;;
  restore)
    local -a spare
    spare=(${commands[panelkit-console]:A:h}/SpareGauges/*(N:t)
      ${XDG_DATA_HOME:-$HOME/.local/share}/panelkit/SpareGauges/*(N:t))
    _arguments $common '--all[from other simulators, too]' '--older[what newer ones have replaced]' \
      '--list[say what is there, and from where]' "*:gauge:($spare)"
    ;;
  brake) _arguments $common '1:state:(on off)' ;;
  cab) _panelkit_console_cab ;;
  *) _arguments $common ;;
esac
