// The sources that are open in windows of their own.
#pragma once

#include <vector>

class CIDEDoc;

std::vector<CIDEDoc *> OpenSources();  // main thread
