# Completes velform's commands, options and files in bash.

_velform() {
    local word=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]}
    if ((COMP_CWORD == 1)); then
        local commands
        commands=$(velform --help 2>/dev/null | sed -n '/^Subcommands:/,$s/^  \([a-z]\+\) .*/\1/p')
        mapfile -t COMPREPLY < <(compgen -W "$commands --help --version" -- "$word")
    elif [[ $word == -* ]]; then
        local options
        options=$(velform "$command" --help 2>/dev/null | grep -o -- '--[a-z-]\+' | sort -u)
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        compopt -o filenames
    fi
}
complete -F _velform velform
