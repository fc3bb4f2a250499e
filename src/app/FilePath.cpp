#include "app/FilePath.h"

#include "app/Path.h"

std::string CFilePath::GetFileName() const { return CPath(path_).GetFileName(); }

std::string CFilePath::GetDirectory() const { return CPath(path_).GetDirectory(); }

std::string CFilePath::GetTitle() const { return CPath(path_).GetTitle(); }
