#define IDC_RED                         1001
#define IDC_SHARED                      1010
#define IDC_ONLY_RED                    1011
