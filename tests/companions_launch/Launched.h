// A companion program under test, started with pipes at its standard handles.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

using Words = std::vector<std::string>;

// Each wait fails the test after 20 s.
class CLaunched {
 public:
    struct Options {
        std::string directory;  // empty: the current one
        int inherited = -1;     // descriptor that the program inherits under its own number
        std::vector<std::pair<std::string, std::string>> environment;
    };

    CLaunched(const Words &command, const Options &options);
    explicit CLaunched(const Words &command) : CLaunched(command, Options()) {}
    ~CLaunched();
    CLaunched(const CLaunched &) = delete;
    CLaunched &operator=(const CLaunched &) = delete;

    pid_t Pid() const { return pid_; }
    void WriteInput(const std::string &text);  // and closes it
    bool ReadUntil(const std::string &text);   // on standard output
    int Wait();                                // exit code; -1 for a signal or after the time limit

    std::string output, error;  // what was read up to now

 private:
    bool ReadMore();
    pid_t pid_;
    int input_, output_, error_;
};

// pspawn with a parameter of 7 and a stop event (-1: none) for the words of a command.
Words Pspawn(const Words &command, int stopEvent = -1);

// Makes this process the adopter of what its children leave behind, so that nothing escapes NothingLeft.
void AdoptOrphans();

// Whether every process below this one has ended. What is left is killed.
bool NothingLeft();
bool NothingLeftSoon();  // waits for it, 20 s at most

// A scratch directory with a blank in its name, removed with the object.
class CScratch {
 public:
    CScratch();
    ~CScratch();
    std::string Path(const std::string &name = {}) const { return (directory_ / name).string(); }
    std::string Write(const std::string &name, const std::string &text, int mode = 0644) const;  // gives the path
    std::string Read(const std::string &name) const;

 private:
    std::filesystem::path root_, directory_;
};
