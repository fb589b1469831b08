//{{NO_DEPENDENCIES}}
// The numbers of the program's texts.
#pragma once

#define IDS_TITLE 101
#define IDS_CANNOT_WRITE 102
#define IDS_NO_KEYS 110
#define IDS_KEYS 111
#define IDS_SURFACE 120
#define IDS_MARKER 121
#define IDS_MESSAGES 130
#define IDS_RECEIVED 131
