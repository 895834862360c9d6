// Asks the update server whether a newer version exists. As yet nothing is asked: the server is to be configured.
#pragma once

// The check at the start of the program: tells of a newer version and keeps quiet about everything else. Blocks for
// as long as the server takes, and pumps while its box is open.
void CheckVersionQuietly();
