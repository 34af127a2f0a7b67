# SPDX-License-Identifier: MIT
# bash completion of nymbrel-settings

# Completes the present word from the words of a text.
_nymbrel_settings_from() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "${COMP_WORDS[COMP_CWORD]}")
}

_nymbrel_settings_files() {
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "${COMP_WORDS[COMP_CWORD]}")
}

_nymbrel_settings_schemes() {
    local schemes scheme names="default beos"
    schemes=$(dirname -- "$(type -P nymbrel-settings)")/../share/nymbrel-config/schemes
    for scheme in "$schemes"/*.scheme; do
        scheme=${scheme##*/}
        names+=" ${scheme%.scheme}"
    done
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -W "$names" -f -- "${COMP_WORDS[COMP_CWORD]}")
}

# The value of a key.
_nymbrel_settings_value() {
    case ${1^^} in
        LOOK) _nymbrel_settings_from "BeOS Nymbrel" ;;
        BEOS | BUBBLEHELPUSED) _nymbrel_settings_from "0 1" ;;
        *_BMP) _nymbrel_settings_files ;;
    esac
}

_nymbrel_settings() {
    local word arguments=() command=${COMP_WORDS[1]}
    COMPREPLY=()
    if [ "$COMP_CWORD" = 1 ]; then
        _nymbrel_settings_from "get set apply reset-colors diff check list --help --version"
        return
    fi
    if [[ ${COMP_WORDS[COMP_CWORD]} = -* ]]; then
        case $command in
            set | apply) _nymbrel_settings_from "--force" ;;
            reset-colors) _nymbrel_settings_from "--force --beos" ;;
            list) _nymbrel_settings_from "--json" ;;
        esac
        return
    fi
    for word in "${COMP_WORDS[@]:2:COMP_CWORD-2}"; do
        [[ $word = --* ]] || arguments+=("$word")
    done
    case $command in
        get | set)
            if [ ${#arguments[@]} = 0 ]; then
                _nymbrel_settings_from "$(nymbrel-settings list 2> /dev/null | cut -d ' ' -f 1)"
            elif [ "$command" = set ]; then
                _nymbrel_settings_value "${arguments[0]}"
            fi
            ;;
        apply) _nymbrel_settings_schemes ;;
        diff | check) _nymbrel_settings_files ;;
    esac
}

complete -F _nymbrel_settings nymbrel-settings
