// The web pages that the About page opens. A box tells what cannot be opened, and pumps.
#pragma once

// Without an update server (update/update_server.h) there are no pages to open.
bool HasWebPages();
void OpenHomepage();
void OpenSupport();
