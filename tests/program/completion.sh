#!/bin/sh
# completion.sh PROGRAM: bash completes commands, pairs, options and their values with the script that the program writes.
set -eu
command -v bash >/dev/null || exit 0
# words LINE: what bash would offer for the last word of the line.
words() {
    bash -euc 'eval "$("$1" completion bash)"; read -ra COMP_WORDS <<<"$2"; [ "${2%" "}" = "$2" ] || COMP_WORDS+=("")
               COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _ktl; echo "${COMPREPLY[*]}"' bash "$program" "$1"
}
program=$1
# check LINE WORDS
check() { [ "$(words "$1")" = "$2" ] || { echo "'$1': '$(words "$1")' instead of '$2'"; exit 1; }; }
check 'ktl ba' 'batch'
check 'ktl batch a' 'auto'
check 'ktl batch ph --dec' '--decimal-comma'
check 'ktl batch ph - T --format t' 'table'
check 'ktl ph 10 3000 RE' 'REGION'
check 'ktl table s' 'saturation single'
check 'ktl table saturation --by p --units s' 'si'
check 'ktl table single --format t' 'text'
for shell in zsh fish; do "$1" completion $shell | grep -q decimal-comma || { echo $shell; exit 1; }; done
