// The controls of the gallery; test_controls.py knows the numbers.
#pragma once

#define gallery_dialog 100
#define gallery_list 101
#define gallery_countdown 102
#define gallery_offset 103
#define gallery_start 104
#define gallery_enabled 105
#define gallery_asks 106
#define gallery_fewer 107
#define gallery_more 108
#define gallery_events 109
#define gallery_state 110
