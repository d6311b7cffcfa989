#!/usr/bin/env bash
# Compiles the rows of this folder: the right ones, and each wrong one, which the compiler's message names.
#
#     rows.sh COMPILER SOURCES
#
# SOURCES is the project's folder. The compiler is a GCC.
set -euo pipefail
export LC_ALL=C
compiler=$1 sources=$2
rows=$(dirname "$0")/rows.cpp
compile=("$compiler" -std=c++20 -fsyntax-only -I "$sources/platform/include" -I "$sources/mapping" "$rows")

"${compile[@]}"
failed=0
while read -r name message; do
  if messages=$("${compile[@]}" -D "$name" 2>&1); then
    echo "$name compiles" >&2
    failed=1
  elif ! grep -q "call to non-'constexpr' function 'void ymap::row_error::$message()'" <<<"$messages"; then
    printf '%s is not told by %s:\n%s\n' "$name" "$message" "$messages" >&2
    failed=1
  fi
done < <(sed -nE 's|^// WRONG\((.*), (.*)\)$|\1 \2|p' "$rows")
exit "$failed"
