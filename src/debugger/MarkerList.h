// The lines of sources that the user has marked, for one kind of mark, over all files of the active project.
#pragma once

#include <list>
#include <map>
#include <string>
#include <unordered_map>

#include "debugger/Marker.h"
#include "debugger/TempMarkers.h"

class CIDEDoc;
class CIDEView;
class CMarkerSection;
class CSciWindow;

// Keeps the marks of files whether they are open or not. The component of an open view moves its markers with the text;
// the list learns the new lines when it is refreshed from the view. File names compare as texts without regard to case.
// A marker lives until it is removed, and keeps its file and line; a refresh replaces all markers of its file. Main
// thread.
class CMarkerList {
public:
    // `name`: section of the project file; `number`: the component's marker, the second state has the next one.
    CMarkerList(std::string name, int number) : name_(std::move(name)), number_(number) {}
    virtual ~CMarkerList() = default;
    CMarkerList(const CMarkerList &) = delete;
    CMarkerList &operator=(const CMarkerList &) = delete;

    // What the list of one kind adds to a marker: its data behind its making, before its end, and in the project's file
    // under `index`.
    virtual void OnAddMarker(CMarker &) {}
    virtual void OnRemoveMarker(CMarker &) {}
    virtual void SaveMarkerData(const CMarker &, CMarkerSection &, int /*index*/) const {}
    virtual void LoadMarkerData(CMarker &, const CMarkerSection &, int /*index*/) {}

    // Null, with no change, when that line of that file is in the list.
    CMarker *Add(const std::string &file, int line, uint8_t secondState, int id = 0);

    // Removes the marker of a line, all of a file (line -1), or with a null file the first of the list, whatever its
    // file. What the markers leave behind goes into `normal` or `second` by their state, where such a list is given;
    // not with a null file. True when at least one went.
    bool Remove(const char *file, int line = -1, TempMarkers *normal = nullptr, TempMarkers *second = nullptr);
    void Clear();

    CMarker *Find(const std::string &file, int line);  // line -1: the first of the file in the list's order
    const std::list<CMarker> &Markers() const { return markers_; }  // in the order of their adding
    std::list<CMarker> &Markers() { return markers_; }
    int Number() const { return number_; }

    // Adds the markers that a view of `file`, of which the list has none, shows now; each takes over the head of the
    // list of its state. Several of one line become one.
    void RefreshFromView(const CSciWindow &view, const std::string &file, TempMarkers *normal, TempMarkers *second);
    // Adds the component's marker of each of the file.
    void PlaceInView(const std::string &file, const CSciWindow &view);

    // Takes all of the component's markers of one number off a line.
    static void DeleteAllOfLine(const CSciWindow &view, intptr_t line, int number);

    virtual void TakeFromView(CIDEView &view);  // replaces the file's markers by those that the view shows now
    void TakeFromDocument(CIDEDoc &document);   // by its first view, if that shows the file
    void ApplyToDocument(CIDEDoc &document);    // in all its views, whose old markers go

    bool Save(const std::string &projectFile) const;  // false when it can't be written
    void Load(const std::string &projectFile);        // replaces the list; passes over what has no file or no line

private:
    using Place = std::list<CMarker>::iterator;
    using Lines = std::map<int, Place>;

    CMarker *AddTo(Lines &lines, const CPath &path, int line, uint8_t secondState, int id);
    void TakeOut(Place place, TempMarkers *normal, TempMarkers *second);

    std::string name_;
    int number_;
    std::list<CMarker> markers_;
    std::unordered_map<std::string, Lines> files_;  // by lower-case name
};
