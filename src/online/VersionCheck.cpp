#include "online/VersionCheck.h"

void RunSilentVersionCheck() {}
