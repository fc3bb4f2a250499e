// The two class types that cross a plug-in's border by pointer. Host and plug-in share one C++ runtime; everything else
// at the border is C.
#pragma once

#include <list>
#include <string>

using CString = std::string;                 // UTF-8; paths in it are in the Windows form
using CStringList = std::list<std::string>;  // in the order that the user sees
