#define IDC_BLUE                        1001
#define IDC_SHARED                      2010
