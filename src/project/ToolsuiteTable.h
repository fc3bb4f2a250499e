// The toolsuites that lie in the program directory.
#pragma once

#include <boost/shared_ptr.hpp>
#include <functional>
#include <map>
#include <string>

#include "platform/SharedLibrary.h"

class CToolsuite;

// Main thread. By name; of two libraries that give one name the later found one stays.
using ToolsuiteTable = std::map<std::string, boost::shared_ptr<CToolsuite>>;

void DiscoverToolsuites();  // fills the table anew; projects keep the toolsuites that they have
void FreeToolsuites();      // empties it
const ToolsuiteTable &GetToolsuiteTable();
boost::shared_ptr<CToolsuite> FindToolsuite(const std::string &name);  // empty when there is none of that name

// Loads each library of the program directory in turn, in the order of the names, and shows those that are toolsuites;
// they are freed again behind the call.
void ScanToolsuites(const std::function<void(const CSharedLibrary &library, const std::string &name)> &found);
