// The lines of sources that the user has marked, for one kind of mark, over all files of the active project.
#pragma once

#include <string>
#include <vector>

#include "app/Path.h"

class CIDEDoc;
class CIDEView;

// One marked line.
struct CMarker {
    CPath path;
    int line = -1;            // from 0
    intptr_t handle = 0;      // of the component's marker in the last view; 0 while the file is not on show
    bool secondState = false; // shows with the list's second marker
    int id = 0;               // of the engine's breakpoint; 0 before it was armed
};

// Keeps the marks of files whether they are open or not. The component of an open view moves its markers with the text;
// the list learns the new lines when it is told to take them. Main thread.
class CMarkerList {
public:
    // `name`: section of the project file; `number`: the component's marker, the second state has the next one.
    CMarkerList(std::string name, int number) : name_(std::move(name)), number_(number) {}

    // Null, with no change, when that line of that file is in the list.
    CMarker *Add(const std::string &file, int line, bool secondState, int id = 0);
    bool Remove(const std::string &file, int line = -1);  // -1: all of the file; true when one went
    CMarker *Find(const std::string &file, int line);
    void Clear() { markers_.clear(); }
    const std::vector<CMarker> &Markers() const { return markers_; }

    void TakeFromView(CIDEView &view);        // replaces the file's marks by those that the view shows now
    void ApplyToView(CIDEView &view);         // adds a component marker for each mark of the view's file
    void TakeFromDocument(CIDEDoc &document);  // by its first view
    void ApplyToDocument(CIDEDoc &document);   // in all its views, whose old markers go

    void Load(const std::string &projectFile);         // replaces the list
    void Store(const std::string &projectFile) const;

private:
    std::string name_;
    int number_;
    std::vector<CMarker> markers_;
};
