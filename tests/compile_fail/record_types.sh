#!/usr/bin/env bash
# Compiles the record types of this folder and looks at the compiler's messages. The compiler is a GCC.
#
#     record_types.sh right COMPILER SOURCES    the right ones compile
#     record_types.sh wrong COMPILER SOURCES    each wrong one is named, with the message that stands in its row
#
# SOURCES is the project's folder.
set -euo pipefail
export LC_ALL=C
here=$(dirname "$0")

kind=$1 compiler=$2 sources=$3
compile=("$compiler" -std=c++20 -fsyntax-only -I "$sources/platform/include" -I "$sources/mapping/oc-lacp/src")

if [[ $kind == right ]]; then
  exec "${compile[@]}" "$here/right_record_types.cpp"
fi

scratch=$(mktemp -d)
trap 'rm -r "$scratch"' EXIT

# Each row as "name: message".
sed -nE 's/^WRONG[A-Z_]*\(([a-z_]+), (.*", )?(.+)\)$/\1: \3/p' "$here/wrong_record_types.cpp" >"$scratch/wanted"

# The compiler says in which table and type it is, and then what is wrong there.
if "${compile[@]}" "$here/wrong_record_types.cpp" 2>"$scratch/messages"; then
  echo "wrong record types compile" >&2
  exit 1
fi
sed -nE "
  s/.*In instantiation of .*Types = ([a-z_]+); (unsigned int Number = 5\]|.*Row = ).*/\1/
  t table
  s/.*error: call to non-'constexpr' function 'void ymap::schema_error::([a-z_]+)\(\)'.*/\1/
  t found
  s/.*error: static assertion failed: (.*)/\1/
  t found
  d
  :table
  h
  d
  :found
  G
  s/(.*)\n(.*)/\2: \1/p
" "$scratch/messages" >"$scratch/found"

if ! diff "$scratch/wanted" "$scratch/found"; then
  cat "$scratch/messages" >&2
  exit 1
fi
wc -l <"$scratch/found" | sed "s/.*/& wrong record types, each with its message/"
