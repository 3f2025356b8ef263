# bash completion for dayward-app
_dayward_app() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
    case $previous in
        --home) COMPREPLY=($(compgen -d -- "$current")) ;;
        --event) COMPREPLY=() ;;
        *) COMPREPLY=($(compgen -W "--home --event --new-event --self-test --version --help" -- "$current")) ;;
    esac
}
complete -F _dayward_app dayward-app
