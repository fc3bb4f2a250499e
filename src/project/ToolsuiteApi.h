// The toolsuite interface: what a compiler's library exports so that the IDE can build with it.
//
// A toolsuite is a shared library `*.dll` in the program directory that exports `toolGetToolName`. Every other entry
// point is optional. All calls come on the main thread with the workspace's directory as current directory; a call must
// return quickly, except while it shows a dialog of its own. No exception may leave a call.
//
// Words used below:
//   text         a zero-terminated UTF-8 string that the callee doesn't keep
//   text result  a zero-terminated UTF-8 string that stays valid until the next call into the library; the host copies
//   it project      full path of the project file (".__c"), Windows form config       full path of the active
//   configuration's file (".__f"), Windows form; the file may not exist yet
// Paths that come in or go out are in the Windows form (see platform/NativePath.h); names of sources are relative to
// the project's directory where they can be, and in double quotes when they hold a blank.
#pragma once

#include <cstdint>
#include <cstdio>

#include "platform/SharedTypes.h"

class QWidget;

extern "C" {

// Fills `name` with the toolsuite's name, its key in projects. Nonzero when the library is a toolsuite.
using ToolGetToolNameFn = int(CString *name);

// Shows the option sheet for `config` with the host's `pageCount` (2) pages added behind the toolsuite's own, each
// page's window title being its tab's text. Nonzero when the user confirmed; the host then stores what its pages hold.
// The toolsuite doesn't own the pages: it takes them out of its sheet (parent null) before it returns.
using ToolConfigureFn = int(const char *project, const char *config, QWidget *parent, QWidget **pages, int pageCount);

// Further headers for the symbol browser. With index -1 and a null buffer: their count. Otherwise writes the name of
// header `index` into `buffer` (at least 260 bytes) and returns nonzero.
using ToolGetExtraBrowseFn = int(const char *project, int index, char *buffer);

// Target dialog; `target` holds the present target and takes the chosen one. 1 when the user chose, else 2.
using ToolTargetFn = int(const char *project, QWidget *parent, CString *target);

// Nonzero when the toolsuite can build for `target` ("PIC16F628A").
using ToolIsValidTargetFn = int(const char *project, const char *target);

// Text result: the target of a project that has none. `scratch` is a string of the host's for the callee's use.
using ToolGetDefTargetFn = const char *(const char *project, CString *scratch);

// Resolved by the host and not called.
using ToolSetDefTargetFn = void(const char *project, const char *target);

// Number of build steps (tools), at most 48.
using ToolGetToolsNumberFn = int16_t();

// Switches step `step` on (1) or off (0). `changing` is 1 while the user tries it out, 0 when he has confirmed.
using ToolSetActiveFn = void(int step, int active, int changing, const char *project);

// Nonzero when step `step` is on.
using ToolGetActiveFn = int(int step, const char *project);

// Text result: the step's name as menus show it.
using ToolGetToolActionNameFn = const char *(int step);

// Text results for dialogs, new files and document types. A filter is "Text|*.a;*.b|Text|*.c|".
using ToolGetQuickProjectFilterFn = const char *();
using ToolGetFilterNameFn = const char *();     // name of the source file type: "Asm Files (*.asm)"
using ToolGetFilterExtFn = const char *();      // its extension with its dot: ".asm"
using ToolGetHeaderExtFn = const char *();      // extension of headers with its dot: ".inc"
using ToolEmptyContentFn = const char *(const char *title);  // first text of a new file of that title
using ToolGetFileOpenFilterFn = const char *();

// Fills `library` with the file name of the project wizard. Nonzero when the toolsuite has one.
using ToolWizardSupportFn = int(CString *library);

// Tells the toolsuite that it has become the active compiler.
using ToolLoadedFn = void();

// Writes the rules of the makefile to `makefile` (the host has written the header line), with the goals "all" and
// "clean". `outputs` takes the files that must exist after a build, relative to the project's directory. On failure
// `error` takes a text for the user. Nonzero on success.
using ToolGenMakeFn = int(CStringList *sources, CStringList *outputs, FILE *makefile, CString *error,
                          const char *project, const char *config);

// Fills `arguments` with further arguments of the make call. Nonzero on success.
using ToolGenMakeAttrFn = int(CString *arguments, const char *project);

// Adds to (or replaces) `files` what step `step` leaves. Nonzero on success.
using ToolGetOutputFilesFn = int(int step, CStringList *files, const char *project, const char *config);

// One command of one step. `command` may hold the variables %name%, %shortname%, %target%, %shorttarget%, %appdir% and
// %config%; `log` names a file to show afterwards or stays empty; `title` is written above the output; `inputs` are the
// sources and what the earlier steps leave; `outputs` takes the files that must exist afterwards; `further` takes other
// files that the step leaves; `extra` is passed to the launcher. Nonzero on success.
using ToolGetToolCmdLineFn = int(int step, CString *command, CString *log, CString *title, CStringList *inputs,
                                 CStringList *outputs, CStringList *further, int32_t *extra, const char *project,
                                 const char *config);

// Resolved by the host and not called.
using ToolGetSysIncludeDirFn = const char *(const char *project);

// Writes the default list of output files, separated by ";", into `buffer` (at least 1024 bytes).
using ToolGetDefOutputFilterFn = void(char *buffer, const char *project);

// Fills `keywords` with the words of language kind `kind`, separated by blanks. Kinds: 0 other, 1 C and C++, 2
// assembler, 3 Pascal, 4 BASIC. Nonzero when the toolsuite has words for it.
using ToolGetKeywordsFn = int(int kind, CString *keywords);

// Nonzero when the toolsuite leaves what the window of `type` shows: 1 call tree, 2 function information.
using ToolSupportedCodeWindowTypeFn = int(int type);

// Reworks the listings of `sources` after a build.
using ToolPreprocessListingFn = void(const char *project, CStringList *sources);

}  // extern "C"
