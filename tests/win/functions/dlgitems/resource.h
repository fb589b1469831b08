#define IDC_TEXT                        1001
#define IDC_CHECK                       1002
#define IDC_GROUP                       1003
#define IDC_SPIN                        1004
#define IDC_ABSENT                      1005
#define IDC_STATIC                      (-1)
