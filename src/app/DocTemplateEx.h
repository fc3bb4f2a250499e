// A document template with further extensions of its own, and the lists of recently used files and workspaces.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/DocTemplate.h"
#include "framework/RecentList.h"

class CDocTemplateEx : public CDocTemplate {
public:
    // `furtherExtensions`: without dots; a file that ends in one is the template's own.
    CDocTemplateEx(int resourceId, std::string strings, Parts parts, std::vector<std::string> furtherExtensions);

    std::string GetDocString(DocString which) const override;
    DocMatch MatchDocType(const std::string &path, CDocument *&open) override;

    // The commands of the two recent lists.
    bool OnCmdMsg(int id, CCmdUI *ui) override;

    static CRecentList &RecentFiles();
    static CRecentList &RecentWorkspaces();

private:
    std::vector<std::string> furtherExtensions_;
};
