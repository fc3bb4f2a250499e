// The dialogs in which the user picks files or a folder.
#pragma once

#include <string>
#include <vector>

class QWidget;

// Filled in by the caller, run once, then read. Paths are in the Windows form.
class CFileDialog {
public:
    enum class Kind { open, save, folder };  // of a folder title and first directory count

    explicit CFileDialog(Kind dialogKind) : kind(dialogKind) {}

    bool DoModal(QWidget *parent);  // true when the user chose

    Kind kind;
    std::string title;
    std::string defaultExtension;  // without dot; added to a typed name that has none
    std::string filter;            // "Text|*.a;*.b|Text|*.c|"
    int filterIndex = 1;           // of the selected filter, from 1; in and out
    std::string fileName;          // offered at first
    std::string initialDirectory;
    bool multiple = false;
    bool mustExist = true;         // open dialogs only
    bool askBeforeOverwrite = false;  // save dialogs; off where the caller asks himself

    std::vector<std::string> paths;  // out; not empty after true
};
