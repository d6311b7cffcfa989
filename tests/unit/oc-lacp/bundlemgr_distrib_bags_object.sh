#!/usr/bin/env bash
# The descriptors are data: the compiler made all of it, and nothing runs before it can be used.
#
#     bundlemgr_distrib_bags_object.sh OBJECT HEADER
#
# OBJECT is the object file, HEADER declares the descriptors. They have to lie in sections that are read-only once the
# loader has placed them, all else in sections that are read-only from the start; and there is no start-up code.
set -euo pipefail
export LC_ALL=C

object=$1 header=$2
failed=0

complain() {
  echo "$*" >&2
  failed=1
}

sections=$(readelf --section-headers --wide "$object")
if grep -E '\.(init_array|preinit_array|ctors|text\.startup)' <<<"$sections"; then
  complain "there is start-up code"
fi

# Number, then name of each section; the symbols name sections by number.
declare -A section_of
while read -r number name; do
  section_of[$number]=$name
done < <(sed -nE 's/^ *\[ *([0-9]+)\] ([^ ]+) .*/\1 \2/p' <<<"$sections")

found=0
while read -r section symbol; do
  case ${section_of[$section]} in
    .data.rel.ro*) [[ $symbol != *_bag ]] || ((++found)) ;;
    .rodata*) [[ $symbol != *_bag ]] || complain "$symbol has no pointers" ;;
    *) complain "$symbol is in ${section_of[$section]}" ;;
  esac
done < <(readelf --symbols --wide "$object" | awk '$4 == "OBJECT" { print $7, $8 }')

declared=$(grep -cE '^OCLACP_EXPORT extern const bag_descriptor [a-z_]+_bag;$' "$header")
((found == declared && declared == 20)) || complain "$found descriptors, $declared declared, 20 wanted"
((failed == 0)) && echo "$found descriptors, all of them constant data"
exit "$failed"
