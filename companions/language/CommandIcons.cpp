#include "CommandIcons.h"

#include "Tables.h"

namespace language {

const char *FindCommandIcon(int command) {
    return IconOf(command);
}

}  // namespace language
