// The controls of the About page.
#pragma once

#define about_page_dialog 1650
#define about_page_Picture1 1651
#define about_page_heading 1652
#define about_page_version 1653
#define about_page_release_date 1654
#define about_page_help_frame 1655
#define about_page_help 1656
#define about_page_homepage 1657
#define about_page_support 1658
#define about_page_no_pages 1659
#define about_page_updates 1660
#define about_page_explanation 1661
#define about_page_Command4 1662
