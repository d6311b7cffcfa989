#!/usr/bin/env bash
# Compares the symbols of the built module with what the headers declare.
#
#     symbols.sh exports MODULE COMPILER INCLUDE CONTRACT    it exports what INCLUDE declares, and nothing else
#     symbols.sh imports MODULE COMPILER INCLUDE CONTRACT    it imports what CONTRACT declares, and nothing else but
#                                                            the C library functions named below
#
# INCLUDE and CONTRACT are the folders of the headers; COMPILER is a GCC, whose -aux-info lists the declarations.
set -euo pipefail
export LC_ALL=C

what=$1 module=$2 compiler=$3 include=$4 contract=$5
scratch=$(mktemp -d)
trap 'rm -r "$scratch"' EXIT

# What the module may take from the C library. It allocates nothing, so nothing that allocates is here; the last line is
# what compilers put in on their own.
library='__assert_fail
access
snprintf
strchr
strncmp
strstr
strtok
strtol
__stack_chk_fail memcmp memcpy memmove memset strcmp strlen'

lines() { tr ' ' '\n' | sort -u; }

# The functions and variables that the headers of a folder declare.
declared() {
  find "$1" -name '*.h' | sort | sed 's/.*/#include "&"/' >"$scratch/all.c"
  "$compiler" -std=c11 -I "$include" -I "$contract" -aux-info "$scratch/prototypes" -c "$scratch/all.c" -o /dev/null
  grep -F "/* $1/" "$scratch/prototypes" | sed -E 's/ \(.*//; s/.*[ *]//'
  # Line markers tell which header a declaration stands in.
  "$compiler" -std=c11 -I "$include" -I "$contract" -E "$scratch/all.c" |
    awk -v folder="\"$1/" '/^# [0-9]+ "/ { inside = index($3, folder) == 1 } inside' |
    sed -nE 's/^(.* )?extern [^()]*[ *]([A-Za-z_][A-Za-z_0-9]*)(\[[^]]*\])?;$/\2/p'
}

# The difference of two lists, both ways.
compare() {
  if ! diff "$1" "$2" >"$scratch/difference"; then
    sed -nE "s/^< /$3: /p; s/^> /$4: /p" "$scratch/difference"
    exit 1
  fi
}

case $what in
  exports)
    declared "$include" | lines >"$scratch/wanted"
    nm -D --defined-only "$module" | awk '{ print $3 }' | lines >"$scratch/found"
    compare "$scratch/wanted" "$scratch/found" 'declared and not exported' 'exported and not declared'
    ;;
  imports)
    declared "$contract" | lines >"$scratch/contract"
    { cat "$scratch/contract"; lines <<<"$library"; } | lines >"$scratch/wanted"
    # Weak symbols are the start files'.
    nm -D --undefined-only "$module" | awk '$1 == "U" { sub(/@.*/, "", $2); print $2 }' | lines >"$scratch/needed"
    # The C library's functions may be used, the contract's are all used.
    { cat "$scratch/needed"; lines <<<"$library"; } | lines >"$scratch/found"
    compare "$scratch/wanted" "$scratch/found" 'in the contract and not used' \
      'not in the contract, and not among the C library functions'
    ;;
  *)
    echo "usage: symbols.sh exports|imports MODULE COMPILER INCLUDE CONTRACT" >&2
    exit 2
    ;;
esac
wc -l <"$scratch/found" | sed "s/.*/& symbols as they should be/"
