# Completion of panelkit-console for bash.
_panelkit_console() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' other
  local options='--simulator --prefix --format --help --version'
  COMPREPLY=()
  # Bash takes the "=" of --format=json for a word.
  if [ "$word" = = ]; then
    word=
  elif [ "$before" = = ]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  case $before in
    --format)
      mapfile -t COMPREPLY < <(compgen -W 'text html json' -- "$word")
      return
      ;;
    --simulator | --prefix | --output-path)
      compopt -o filenames
      mapfile -t COMPREPLY < <(compgen -d -- "$word")
      return
      ;;
    --output-file | --as) return ;;
  esac
  for other in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case $other in
      where | probe | show | clean | restore | find | brake | cab | count | list | xml | extract)
        command=$other
        ;;
    esac
  done
  case $command in
    '') options+=' where probe show clean restore find brake cab' ;;
    where) options+=' --all' ;;
    probe) options+=' --hints --careful' ;;
    show) options+=' --careful' ;;
    find) options+=' --install --as --dry-run --careful' ;;
    restore) options+=' --all --older --list' ;;
    clean) options+=' --dry-run --careful' ;;
    brake) options+=' on off' ;;
    cab) options+=' count list xml extract' ;;
    extract) options+=' --output-path --output-file' ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
  case $command in
    restore)
      compopt -o filenames
      local folder
      for folder in "$(dirname "$(readlink -f "$(command -v "${COMP_WORDS[0]}")")")" "${XDG_DATA_HOME:-$HOME/.local/share}/panelkit"; do
        mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(cd "$folder/SpareGauges" 2>/dev/null && compgen -f -- "$word")
      done
      ;;
    find | count | list | xml | extract)
      compopt -o filenames
      mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(compgen -f -- "$word")
      ;;
  esac
}
complete -F _panelkit_console panelkit-console
