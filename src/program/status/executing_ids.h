// The controls of executing.
#pragma once

#define executing_dialog 2000
#define executing_Picture1 2001
#define executing_Label1 2002
#define executing_status 2003
#define executing_List1 2004
#define executing_Pbar 2005
#define executing_closebutton 2006
#define executing_why 2007
