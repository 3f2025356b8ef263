# bash completion for dayward-widget
_dayward_widget() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
    case $previous in
        --format) COMPREPLY=($(compgen -W "text json waybar" -- "$current")) ;;
        --count) COMPREPLY=($(compgen -W "1 2 3 4 5 6 7 8 9 10" -- "$current")) ;;
        --theme) COMPREPLY=($(compgen -W "light dark" -- "$current")) ;;
        --home) COMPREPLY=($(compgen -d -- "$current")) ;;
        --locale) COMPREPLY=($(compgen -W "en_US en_GB ru_RU" -- "$current")) ;;
        --separator|--now|--tz) COMPREPLY=() ;;
        *) COMPREPLY=($(compgen -W "--format --follow --count --separator --theme --home --now --tz --locale --version --help" -- "$current")) ;;
    esac
}
complete -F _dayward_widget dayward-widget
