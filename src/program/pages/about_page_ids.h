// The controls of the About page.
#pragma once

#define about_page_dialog 1700
#define about_page_Picture1 1701
#define about_page_heading 1702
#define about_page_version 1703
#define about_page_release_date 1704
#define about_page_help_frame 1705
#define about_page_help 1706
#define about_page_homepage 1707
#define about_page_support 1708
#define about_page_no_pages 1709
#define about_page_updates 1710
#define about_page_explanation 1711
#define about_page_Command4 1712
