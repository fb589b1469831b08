//{{NO_DEPENDENCIES}}
// Visual C++ generated include file.
#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

#define IDC_PART 1001
#define IDS_TEN 1002
#define IDS_EMOJI 1003
#define IDC_WITHOUT_TEXT 1004
#define IDS_EMPTY 1005
#define IDC_part 1006
