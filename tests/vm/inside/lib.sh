# What the checks share. Sourced first; the check ends with 1 when something did not hold.
failures=0
temporary=$(mktemp -d)
trap 'status=$?; ip -all netns delete; rm -r "$temporary"; exit $((failures != 0 || status != 0))' EXIT

fail() { # what did not hold
  echo "FAILED: $*"
  failures=$((failures + 1))
}

# The outcome of a command: its status, and what it printed.
run() { # command
  status=0
  "$@" >"$temporary/out" 2>"$temporary/err" || status=$?
}

expect_status() { # status, what was done
  [ "$status" -eq "$1" ] || { fail "$2: status $status, expected $1"; cat "$temporary/err"; }
}

expect_said() { # part of what it says on the standard error, what was done
  grep -qF -- "$1" "$temporary/err" || { fail "$2: does not say '$1' but:"; cat "$temporary/err"; }
}

expect_silent() { # what was done
  [ ! -s "$temporary/err" ] || { fail "$1: says"; cat "$temporary/err"; }
}

# What was refused, with its reason.
expect_refused() { # part of the reason, what was done
  expect_status 1 "$2"
  expect_said "$1" "$2"
}

expect_equal() { # expected, actual, what
  [ "$1" = "$2" ] || fail "$3: '$2', expected '$1'"
}

# Waits until a command succeeds.
wait_until() { # seconds, command
  deadline=$(($(date +%s) + $1))
  shift
  while ! "$@" >/dev/null 2>&1; do
    [ "$(date +%s)" -lt $deadline ] || return 1
    sleep 0.2
  done
}

within() { # namespace, command
  space=$1
  shift
  ip netns exec "$space" "$@"
}

# Prints commands of ip (ip -batch): a bond whose ports are PORT0, PORT1, ...
print_bond() { # bond, count, port, options of the bond
  bond=$1 count=$2 port=$3
  shift 3
  echo "link add $bond type bond mode 802.3ad $*"
  number=0
  while [ "$number" -lt "$count" ]; do
    echo "link set $port$number master $bond"
    number=$((number + 1))
  done
  echo "link set $bond up"
}

# Cables between ports of this namespace and one called FAR.
print_cables() { # port, far namespace, far port, count
  number=0
  while [ "$number" -lt "$4" ]; do
    echo "link add $1$number type veth peer name $3$number netns $2"
    number=$((number + 1))
  done
}

# Whether all ports of a bond carry frames: both ends of each say 61 or 63.
is_settled() { # namespace, bond
  within "$1" awk '/^Slave Interface/ { ports++ } /port state: 6[13]$/ { good++ }
                   END { exit !(ports && good == 2 * ports) }' "/proc/net/bonding/$2"
}

# Two namespaces with bond0, bond1, ..., which speak LACP to each other over two cables each: a00 and a01 of bond0, ...,
# b00 and b01 on the far side. The near ones are fast, the far ones slow.
add_pairs() { # near namespace, far namespace, count
  ip netns add "$1"
  ip netns add "$2"
  pair=0
  while [ "$pair" -lt "$3" ]; do
    print_cables "a$pair" "$2" "b$pair" 2 >&3
    print_bond "bond$pair" 2 "a$pair" lacp_rate fast >&3
    print_bond "bond$pair" 2 "b$pair" lacp_rate slow >&4
    pair=$((pair + 1))
  done 3>"$temporary/near" 4>"$temporary/far"
  ip -n "$1" -batch "$temporary/near"
  ip -n "$2" -batch "$temporary/far"
  wait_until 120 is_settled "$1" "bond$(($3 - 1))" || fail "the bonds do not come together"
}

# The value of a leaf as the program reads it; null when it is absent.
leaf() { # namespace, bond, path below the interface as jq writes it
  within "$1" oclacp get -d linux --all 2>/dev/null |
    jq -r --arg bond "$2" '."openconfig-lacp:lacp".interfaces.interface[] | select(.name == $bond) | '"$3"
}

edit() { # namespace, document, options of the program
  printf '%s' "$2" >"$temporary/edit.json"
  space=$1
  shift 2
  run within "$space" oclacp edit -d linux "$@" "$temporary/edit.json"
}

# A document that sets members of the config of a bond.
settings() { # bond, members in JSON
  printf '{"openconfig-lacp:lacp": {"interfaces": {"interface": [{"name": "%s", "config": {"name": "%s", %s}}]}}}' \
    "$1" "$1" "$2"
}

delete() { # namespace, path, options of the program
  space=$1 path=$2
  shift 2
  run within "$space" oclacp delete -d linux "$path" "$@"
}

config() { # bond, leaf: the path of a setting
  echo "/lacp/interfaces/interface[name='$1']/config/$2"
}
