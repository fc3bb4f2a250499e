// What the stops of the tour have in common: the log, the checks and the numbered pictures.
#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "support/Program.h"

class CTour {
public:
    explicit CTour(std::filesystem::path directory);

    void Say(const std::string &words);
    void Check(bool holds, const std::string &what);  // ends the tour with code 1 when it doesn't hold

    void Picture(CProgram &program, const std::string &name);
    void PictureOf(QWidget &widget, const std::string &name);

    // Runs a command that opens a dialog. `act` works on it; then its picture is taken and it is cancelled, or accepted
    // with `accept`.
    void Dialog(CProgram &program, int command, const std::string &name,
                const std::function<void(QWidget &)> &act = {}, bool accept = false);

private:
    std::string NextPicture(const std::string &name);

    std::filesystem::path directory_;
    std::ofstream log_;
    int pictures_ = 0;
};

bool Contains(const std::string &text, const std::string &part);
