// The simulator's program, seen from the debugger: its start, its memory, its end.
#pragma once

#include <string>

#include "protocol/SharedBlock.h"

// Start and End are for one thread at a time; the rest is for any.
class CHostProcess {
public:
    CHostProcess() = default;
    ~CHostProcess();
    CHostProcess(const CHostProcess &) = delete;
    CHostProcess &operator=(const CHostProcess &) = delete;

    // Starts simhost.exe (platform's FindProgram). It gets a socket and the memory, and nothing else of this process;
    // its standard handles are /dev/null, but what it writes to stderr is appended to the file that the environment's
    // THORNWELL_SIMHOST_LOG names (native).
    bool Start(std::string &error);

    // Whether it will still answer. Costs a call of the system.
    bool IsThere() const;

    // Ends all its processes, at the latest after some seconds, and collects it. The memory stays until the destructor.
    void End();

    SharedBlock *Block() const { return block_; }

private:
    bool MakeMemory(int &memory);
    bool Spawn(int life, int memory, std::string &error);

    int life_ = -1;  // ends with this process; the simulator's program holds its other end
    int pid_ = -1;
    int pidDescriptor_ = -1;
    SharedBlock *block_ = nullptr;
};
