# Completion of liedwerk for bash.
_liedwerk() {
    local wort="${COMP_WORDS[COMP_CWORD]}" IFS=$'\n'
    COMPREPLY=()
    if [[ $COMP_CWORD -eq 1 && "$wort" == -* ]]; then
        COMPREPLY=($(compgen -W $'--dir\n--tag\n--hilfe\n--version' -- "$wort"))
        return
    fi
    compopt -o filenames
    if [[ "${COMP_WORDS[1]}" == --dir ]]; then
        COMPREPLY=($(compgen -d -- "$wort"))
    else
        COMPREPLY=($(compgen -f -- "$wort"))
    fi
}
complete -F _liedwerk liedwerk
