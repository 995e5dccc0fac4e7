# What bash offers after some words: completion_test.bash FOLDER-OF-VELFORM COMPLETION
set -eu
PATH=$1:$PATH
source "$2"
compopt() { :; } # knows real completions only

offers() { # what is expected, then the words of the line
    local expected=$1
    shift
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMPREPLY=()
    _velform
    if [[ "${COMPREPLY[*]}" != "$expected" ]]; then
        echo "$*: ${COMPREPLY[*]}" && exit 1
    fi
}

cd "$(mktemp -d)"
trap 'rm -r "$PWD"' EXIT
touch a.toml
offers render velform rend
offers "--state" velform render --st
offers "--embed --embed-fonts" velform compile --em
offers a.toml velform compile a.
offers "" velform frob
