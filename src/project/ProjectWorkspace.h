// A workspace of one project that stands alone, without a workspace file.
#pragma once

#include "project/Workspace.h"

class CProjectWorkspace : public CWorkspace {
public:
    using CWorkspace::CWorkspace;  // the path is the project's file

    int Kind() const override { return kWorkspaceStandAlone; }
    bool AddProject(const std::string &name, bool makeActive, bool load) override;  // in the place of what it holds
    void Save() override;
};
