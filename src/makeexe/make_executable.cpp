#include "makeexe/make_executable.h"

void MakeExecutable(const std::string&) {}
