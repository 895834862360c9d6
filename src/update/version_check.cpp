#include "update/version_check.h"

void CheckVersionQuietly() {}
