// Which source lines a message of the linker is about. The linker names objects, sections and symbols only; the
// objects' own line tables, and the sources where those tell nothing, lead on from there.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "coff/ObjectFile.h"

// `objects`: the objects on the linker's command line, native names relative to the current directory. The main place
// comes first; a duplicate symbol has two. Empty for a message about nothing in the sources.
std::vector<SourcePlace> FindLinkPlaces(std::string_view message, const std::vector<std::string> &objects);
