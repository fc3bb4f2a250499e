// The command lines of a build's plain steps.
#pragma once

#include <string>

// The make tool in the program directory with its arguments: "make.exe" when there is one, else "twmake.exe".
std::string MakeCommand(const std::string &makefile, const std::string &attributes, const std::string &arguments);

// The same for a program directory and a tool that are given.
std::string FormMakeCommand(const std::string &programDirectory, const std::string &tool, const std::string &makefile,
                            const std::string &attributes, const std::string &arguments);
