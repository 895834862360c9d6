// The resources that more than one form uses.
#pragma once

#define ICON_TESSARINE 1
#define ICON_SCHEDULE 2
#define ICON_SCHEDULE_OFF 3
#define ICON_JOB 4  // of .tsj files; the registry names it by its number

// The frame of the floating windows, by scale in percent.
#define FRAME_100 100
#define FRAME_125 125
#define FRAME_150 150
#define FRAME_200 200
#define FRAME_300 300
