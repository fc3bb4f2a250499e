// The file converter interface: a shared object `*.dll` in the program directory that exports both functions below. It
// is loaded while a file is offered to it and freed afterwards. All calls come on the main thread; paths are in the
// Windows form; no exception may leave a call.
#pragma once

#include "platform/SharedTypes.h"

extern "C" {

// Nonzero when the library wants to convert `file` for the toolsuite of that name; `question` then takes the words in
// which the user is asked, to be answered with yes or no.
using ConverterIsSupportedFn = int(const char *file, const char *toolsuite, CString *question);

// Converts `file` in place for `target`. `text` comes with the question; `report` takes lines for the build list.
// Nonzero on success.
using ConverterConvertFileFn = int(const char *file, CString *text, CStringList *report, const char *target);

}  // extern "C"

inline constexpr const char *kConverterIsSupported = "IsSupported";
inline constexpr const char *kConverterConvertFile = "ConvertFile";
