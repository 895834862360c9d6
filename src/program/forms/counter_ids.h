// The controls of counter.
#pragma once

#define counter_dialog 4100
#define counter_caption 4101
#define counter_number 4102
