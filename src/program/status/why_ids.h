// The controls of why.
#pragma once

#define why_dialog 2100
#define why_row 2101
#define why_reason 2102
#define why_table 2103
#define why_copy 2104
#define why_close 2105
