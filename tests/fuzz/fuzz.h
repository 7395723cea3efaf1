#pragma once

#include <algorithm>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>

#include "text/utf.h"

namespace rotavel::tests {

inline void Check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

}  // namespace rotavel::tests
