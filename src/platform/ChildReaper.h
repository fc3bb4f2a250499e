// Collects children whose owner is gone, so that none stays behind as a zombie.
#pragma once

#include <mutex>
#include <thread>
#include <utility>
#include <vector>

// One thread, begun with the first child that is handed over and ended with the object. Any thread.
class CChildReaper {
public:
    CChildReaper() = default;
    ~CChildReaper();
    CChildReaper(const CChildReaper &) = delete;
    CChildReaper &operator=(const CChildReaper &) = delete;

    // Takes over a running child and its process descriptor.
    void Adopt(int pid, int pidDescriptor);

private:
    struct Child {
        int pid, descriptor;
    };

    bool Begin();
    void Run();

    std::mutex lock_;
    std::vector<Child> children_;  // guarded by lock_
    int wake_ = -1;                // event descriptor: a child came, or the end
    bool ending_ = false;          // guarded by lock_
    std::thread thread_;
};
