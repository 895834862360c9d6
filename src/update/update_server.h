// Where newer versions are told of, and where the program's pages are: one address, in the registry (UpdateServer,
// under HKCU\Software\Tessarine). What is shipped has none, and then nobody is asked anything.
#pragma once

#include <string>

// "https://host/folder/", with the slash; empty when none is set, or what is set is no address of the web.
std::string UpdateServer();

// The pages there. Empty without a server.
std::string VersionFile();    // ver.txt
std::string CustomersPage();  // where a newer version can be had, and help
