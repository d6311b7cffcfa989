// The platform contract as the host sees it. Everything is compiled with hidden visibility; the contract's operations
// and variables are what a loaded module resolves, so their declarations make them visible. Host sources include the
// contract only through this header.
#pragma once

#include <assert.h>
#include <stddef.h>
#include <stdint.h>

#pragma GCC visibility push(default)
#include "bag/bag.h"
#include "imc/imc.h"
#include "platform/router.h"
#include "sysdb/sysdb.h"
#include "yfw/context.h"
#include "yfw/datatree.h"
#include "yfw/log.h"
#include "yfw/map.h"
#include "yfw/registration.h"
#include "yfw/status.h"
#include "yfw/strings.h"
#pragma GCC visibility pop
