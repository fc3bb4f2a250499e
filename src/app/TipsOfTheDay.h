// The tips of the day: their texts come from the language library, where the reader is in them from the settings.
#pragma once

#include <string>
#include <vector>

// Main thread.
class CTipsOfTheDay {
public:
    CTipsOfTheDay();

    bool IsEmpty() const { return tips_.empty(); }
    const std::string &Next();  // goes on where the last one ended, also in an earlier run; empty without tips

    static bool AreWantedAtStart();
    static void WantAtStart(bool wanted);

private:
    std::vector<std::string> tips_;
};
