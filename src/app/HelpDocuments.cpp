#include "app/HelpDocuments.h"

#include "app/CommandIds.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/ShellOpen.h"
#include "platform/NativePath.h"
#include "platform/ProgramDirectory.h"

namespace {

constexpr HelpDocument kDocuments[] = {
    {ID_HELP_LARKBASIC, "larkbasic.pdf"},
    {ID_HELP_MOORHEN, "moorhen.pdf"},
    {ID_HELP_LARKC, "larkc.pdf"},
    {ID_HELP_LARKCPP, "larkc++.pdf"},
    {ID_HELP_SABLE_RTOS, "Sable_RTOS.pdf"},
    {ID_HELP_FLOAT_MATH, "FloatMath.pdf"},
    {ID_HELP_OSPREYC, "ospreyc.html"},
    {ID_HELP_OSPREYCPP, "ospreycpp.html"},
    {ID_HELP_OSPREYP, "ospreyp.html"},
    {ID_HELP_USER_MANUAL, "UserManual.pdf"},
    {ID_HELP_PLUGIN_SYSTEM, "plugin_system.html"},
    {ID_HELP_WIZARD, "Wizard.html"},
};

}  // namespace

std::span<const HelpDocument> HelpDocuments() { return kDocuments; }

bool OpenHelpDocument(const HelpDocument &document, std::string &error) {
    const std::string file = ProgramFile(document.file);
    if (ShellOpen(file)) return true;
    error = LoadText(IDS_HELP_FAILED) + "\n" + DisplayPath(file);
    return false;
}
