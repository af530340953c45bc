// The second process of these tests.
#pragma once

#include "gui_support/processes.h"

namespace tavernook {

inline QString helper_program() {
    return QStringLiteral(TAVERNOOK_TEST_HELPER);
}

}  // namespace tavernook
