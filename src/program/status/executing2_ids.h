// The controls of executing2.
#pragma once

#define executing2_dialog 3000
#define executing2_Label1 3001
#define executing2_Label2 3002
#define executing2_Label3 3003
