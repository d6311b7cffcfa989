// Record types that compile: what the wrong ones differ from.
#include "bag_descriptor.h"

constexpr ymap::RecordType kTypes[] = {
    {1, 4, "{number}D"},
    {2, 16, "16x%s"},
    {3, 8, "{mac}6x%m{short}I"},
    {4, 24, "?(<tag,hue>,0:{number}$1,1:{address}$2)"},
    {5, 56, "{hue}[hue]e{handle}D%h{text}s{optional}p($1){array}a($2){address}N{node}D%n{wide}H"},
    {6, 32, "{tiny}C{either}$4"},
};
static_assert(ymap::are_valid<kTypes>());
