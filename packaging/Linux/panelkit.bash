# Completion of panelkit for bash.
_panelkit() {
  local word=${COMP_WORDS[COMP_CWORD]}
  COMPREPLY=()
  case ${COMP_WORDS[COMP_CWORD - 1]} in
    --simulator | --prefix)
      compopt -o filenames
      mapfile -t COMPREPLY < <(compgen -d -- "$word")
      ;;
    *)
      compopt -o filenames
      mapfile -t COMPREPLY < <(
        compgen -W '--simulator --prefix --help --version' -- "$word"
        compgen -f -- "$word"
      )
      ;;
  esac
}
complete -F _panelkit panelkit
