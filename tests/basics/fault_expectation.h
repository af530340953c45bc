// Which Fault a call ends with.
#pragma once

#include "basics/fault.h"

namespace tavernook {

// The number of the Fault that the call throws; 0 when it throws none.
template <typename Call>
int fault_of(Call&& call) {
    try {
        call();
    } catch (const Fault& fault) {
        return fault.number;
    }
    return 0;
}

}  // namespace tavernook
