# Completion of objimport's command line in bash: options as its own help names them, their values,
# OBJ files.

# The help writes a switch and its opposite as one: --[no-]z-up.
_objimport_options() {
    "$1" --help 2>/dev/null | grep -E '^ +-' |
        sed -E 's/--\[no-\]([a-z-]+)/--\1 --no-\1/' | grep -oE -e '--[a-z][a-z-]*' | sort -u
}

# The values that the help lists for an option, as in "--groups none|layers".
_objimport_values() {
    "$1" --help 2>/dev/null | sed -nE "s/^ +([^ ]*,)?$2[ =]([a-z]+(\|[a-z]+)+).*/\2/p" | tr '|' '\n'
}

_objimport() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} candidates=
    if [[ $word == -* ]]; then
        candidates=$(_objimport_options "$1")
    elif [[ $previous == --* ]]; then
        candidates=$(_objimport_values "$1" "$previous")
    fi
    if [[ -n $candidates ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$candidates" -- "$word")
        return
    fi
    compopt -o filenames -o plusdirs 2>/dev/null || true
    case $previous in
    --json | --settings | --strings | --module | --save | --sarif)
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        ;;
    *)
        local -r not_obj='!*.[oO][bB][jJ]'
        mapfile -t COMPREPLY < <(compgen -f -X "$not_obj" -- "$word")
        ;;
    esac
}

complete -F _objimport objimport
