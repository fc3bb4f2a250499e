// The queue of build steps. Its head is the step that runs or is about to run; it is empty outside a build.
#pragma once

#include <list>
#include <memory>
#include <semaphore>
#include <string>

#include "build/Message.h"

// Owns its steps. Main thread.
class CMessageList {
public:
    bool IsEmpty() const { return steps_.empty(); }
    size_t GetCount() const { return steps_.size(); }
    bool IsHeadStarted() const { return headStarted_; }  // the head was executed, and its end hasn't been handled
    void AddTail(std::unique_ptr<CMessage> step) { steps_.push_back(std::move(step)); }

    bool StartNext();     // executes the head; false, with a line in the build list and an empty queue, when it can't
    void Clear();
    void KeepHeadOnly();  // drops what waits behind the running step

    // What the frame does with the messages of the build's child and of other threads.
    void OnBuildLine(const std::string &text);   // kMsgOutputText
    void OnOutputLine(const std::string &text);  // kMsgOutputTextHeap
    void OnChildEnded();                         // kMsgChildEnded: ends the head and starts the next step

private:
    bool ExecuteHead();
    std::unique_ptr<CMessage> RemoveHead();
    void Finish();

    std::list<std::unique_ptr<CMessage>> steps_;
    bool headStarted_ = false;
    std::binary_semaphore semaphore_{1};
};
