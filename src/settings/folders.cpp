#include "settings/folders.h"

Folders folders;
