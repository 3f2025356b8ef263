# bash completion for dayward
_dayward() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
    local global="--home --now --tz --locale --json --help --version"
    local look="--date --time --repeat --duration --alert --units --style --category --icon --background --font --text-color --show-age --note"
    local commands="list show add edit remove watch categories settings missed badge rule interval document notifications doctor widget"
    local word command=""
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ " $commands " == *" $word "* ]]; then command=$word; break; fi
    done
    case $previous in
        --home) COMPREPLY=($(compgen -d -- "$current")); return ;;
        --tz) COMPREPLY=($(compgen -W "$(cd /usr/share/zoneinfo && find . -type f -path './[A-Z]*' | cut -c3-)" -- "$current")); return ;;
        --locale) COMPREPLY=($(compgen -W "en_US en_GB ru_RU" -- "$current")); return ;;
        --sort) COMPREPLY=($(compgen -W "date name custom" -- "$current")); return ;;
        --style) COMPREPLY=($(compgen -W "number symbol short full" -- "$current")); return ;;
        --as) COMPREPLY=($(compgen -W "countdown rounded plain detail" -- "$current")); return ;;
        --repeat) COMPREPLY=($(compgen -W "never daily weekly monthly yearly" -- "$current")); return ;;
        --icon|--background) COMPREPLY=($(compgen -f -- "$current")); return ;;
    esac
    case $command in
        "") COMPREPLY=($(compgen -W "$commands $global" -- "$current")) ;;
        list) COMPREPLY=($(compgen -W "--sort --search --ids $global" -- "$current")) ;;
        add|edit) COMPREPLY=($(compgen -W "$look --no-show-age --name $global" -- "$current")) ;;
        categories) COMPREPLY=($(compgen -W "add edit remove --name --icon --background --font --text-color $global" -- "$current")) ;;
        missed) COMPREPLY=($(compgen -W "--clear $global" -- "$current")) ;;
        badge) COMPREPLY=($(compgen -W "none missed next before after $global" -- "$current")) ;;
        rule) COMPREPLY=($(compgen -W "next between last describe normalize batch --start --time --after --count --from --to --max $global" -- "$current")) ;;
        interval) COMPREPLY=($(compgen -W "--from --to --units --style --as $global" -- "$current")) ;;
        document) COMPREPLY=($(compgen -W "read write archive $global" -- "$current") $(compgen -f -- "$current")) ;;
        notifications) COMPREPLY=($(compgen -W "--scheduled test refresh $global" -- "$current")) ;;
        widget) COMPREPLY=($(compgen -W "type events today selected --none --format --count --separator --follow text json waybar $global" -- "$current")) ;;
        *) COMPREPLY=($(compgen -W "$global" -- "$current")) ;;
    esac
}
complete -F _dayward dayward
