# bash completion for dayward-agent
_dayward_agent() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
    case $previous in
        --home) COMPREPLY=($(compgen -d -- "$current")) ;;
        *) COMPREPLY=($(compgen -W "--home --version --help" -- "$current")) ;;
    esac
}
complete -F _dayward_agent dayward-agent
