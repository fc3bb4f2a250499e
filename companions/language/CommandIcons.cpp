#include "CommandIcons.h"

#include "Tables.h"

namespace language {

const char *FindCommandIcon(int command) {
    const auto row = FindRow(kIconsById, command);
    return row ? row->icon : nullptr;
}

}  // namespace language
