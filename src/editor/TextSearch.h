// Search and replacement in the text of one window of the editing component.
#pragma once

#include <optional>
#include <string>

#include "editor/SciWindow.h"

// A stretch of text; byte offsets.
struct TextRange {
    intptr_t start = -1;
    intptr_t end = -1;

    bool IsEmpty() const { return start == end; }
    bool operator==(const TextRange &) const = default;
};

// One text and the way to look for it. It leaves the selection alone, but uses the component's target. Main thread.
//
// Hits don't overlap. Forward and backward give the same hits of a regular expression, those that a walk from each
// line's start meets, so that none is left out or met twice.
class CTextSearch {
public:
    // `text` isn't empty; `flags`: SCFIND_...
    CTextSearch(const CSciWindow &sci, std::string text, intptr_t flags);

    // The nearest hit behind `last`, or before it; when there is none, the first one round the end of the text. An
    // empty hit that is `last` itself counts only when there is no other. A default `last` begins at the text's start.
    std::optional<TextRange> FindNext(const TextRange &last, bool reverse) const;

    // Replaces what stands in `range`. The length of the replacement; empty in a read-only window, which tells of the
    // attempt.
    std::optional<intptr_t> ReplaceRange(const TextRange &range, const std::string &replacement) const;

    // Replaces every hit in one undo step, and puts the caret behind the last one. The count: 0 in a read-only window,
    // as above; empty without a hit.
    std::optional<intptr_t> ReplaceAll(const std::string &replacement) const;

    // Whether the component can't read the regular expression, so that nothing is ever found.
    bool IsBadExpression() const;

private:
    bool IsRegExp() const { return flags_ & SCFIND_REGEXP; }
    std::optional<TextRange> Search(intptr_t from, intptr_t to) const;
    std::optional<TextRange> Forward(intptr_t from, intptr_t end, const TextRange &passed) const;
    std::optional<TextRange> Backward(intptr_t from, const TextRange &passed) const;
    std::optional<TextRange> LastOfLine(intptr_t line, intptr_t before, const TextRange &passed) const;
    intptr_t Replace(const TextRange &hit, const std::string &replacement) const;  // the hit of the search before
    bool CanChange() const;  // false in a read-only window, which is made to tell of an attempt
    bool IsReal(const TextRange &hit, intptr_t from) const;
    void SetTarget(intptr_t start, intptr_t end) const;
    intptr_t Length() const { return sci_.Send(SCI_GETLENGTH); }
    intptr_t After(intptr_t position) const { return sci_.Send(SCI_POSITIONAFTER, static_cast<uintptr_t>(position)); }
    intptr_t Before(intptr_t position) const { return sci_.Send(SCI_POSITIONBEFORE, static_cast<uintptr_t>(position)); }

    const CSciWindow &sci_;
    const std::string text_;
    const intptr_t flags_;
    bool fromWordStart_ = false;  // a regular expression whose hits begin at the start of a word
};
