// Identifiers shared with PlotvaneHost.rc.
#define IDI_PLOTVANE 1
#define IDD_PROMPT 2
#define IDC_QUESTION 10
#define IDC_ANSWER 11
