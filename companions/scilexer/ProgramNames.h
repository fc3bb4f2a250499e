// The program's table of message names, in a namespace of its own: the component's class has enumerators of these
// names.
#pragma once

#include <cstdint>

namespace program {
#include "editor/ScintillaMessages.h"
}
