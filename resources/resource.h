// Identifiers of the resources. The numbers are part of the contract with settings, scenarios and hosts: a
// number, once given, stays.
#pragma once

// Dialogs.
#define IDD_PROJECT 129
#define IDD_DATABASE_CHOICE 176
#define IDD_GENERAL 2000
#define IDD_REPORT_TEMPLATE_CHOICE 2001

// Dialog 129, the Project description page.
#define IDC_PROJECT_LABEL 2015
#define IDC_PROJECT_NAME 1005
#define IDC_REPORT_HEADER_GROUP 2037
#define IDC_REPORT_HEADER_1 1000
#define IDC_REPORT_HEADER_2 1001
#define IDC_DESCRIPTION_1 1002
#define IDC_DESCRIPTION_2 1003
#define IDC_DESCRIPTION_3 1004
#define IDC_JOB_NUMBER_LABEL 1118
#define IDC_JOB_NUMBER 1006
#define IDC_DRAWING_NUMBER 1007
#define IDC_PROJECT_DATE 1008
#define IDC_DESIGNED_BY 1009
#define IDC_DRAWN_BY 1010
#define IDC_SHEET_ATTRIBUTE 2033
#define IDC_PATHS_GROUP 1099
#define IDC_BROWSE_REPORT_TEMPLATE 1106
#define IDC_REPORT_TEMPLATES 1105
#define IDC_BROWSE_DATABASE 1107
#define IDC_DATABASE 1108
#define IDC_STANDARD_LABEL 2009
#define IDC_FILE_LABEL 2010
#define IDC_DATABASE_FILE 1110
#define IDC_PREFIX_LABEL 2011
#define IDC_DATABASE_PREFIX 1109

// Dialog 176, inside the file dialog that chooses a database.
#define IDC_ALL_FILES 1113

// Dialog 2000, the General page.
#define IDC_FUNCTION_ORIENTED 1060
#define IDC_COUNT_UP_DESIGNATIONS 1044
#define IDC_CAPITAL_DESIGNATIONS 1043
#define IDC_MARKING_GROUP 2035
#define IDC_MARKING_A1_A2 1052
#define IDC_MARKING_A2_A1 1053
#define IDC_MARKING_PREVIEW 1102
#define IDC_SYMBOL_STANDARD 1059
#define IDC_CROSS_DISTANCE 1088
#define IDC_START_X 1089
#define IDC_START_Y 1090
#define IDC_PHASE_DISTANCE_VER 1041
#define IDC_PHASE_LENGTH_VER 1021
#define IDC_PHASE_DISTANCE_HOR 1091
#define IDC_PHASE_LENGTH_HOR 1020
#define IDC_CABLE_GROUP 2044
#define IDC_CORE_ARROW 1054
#define IDC_CORE_SLASH 1055
#define IDC_CABLE_BALLOON 1058
#define IDC_CABLE_TEXT1 1056
#define IDC_CABLE_TEXT2 1057
#define IDC_CABLE_PREVIEW 1103

// Labels and frames that no code addresses.
#define IDC_STATIC (-1)

// Previews of the marking order, in the Swedish and the British set.
#define IDB_MARKING_A1_A2 150
#define IDB_MARKING_A2_A1 152
#define IDB_MARKING_A1_A2_GB 165
#define IDB_MARKING_A2_A1_GB 166

// Previews of the cable style. 2012 and 2013 are icons of the colour lists.
#define IDB_ARROW_BALLOON 2007
#define IDB_ARROW_TEXT1 2008
#define IDB_ARROW_TEXT2 2009
#define IDB_SLASH_BALLOON 2010
#define IDB_SLASH_TEXT1 2011
#define IDB_SLASH_TEXT2 2014

// Strings. The colour names 1 to 7 are addressed by the colour's number.
#define IDS_COLOUR_RED 1
#define IDS_COLOUR_YELLOW 2
#define IDS_COLOUR_GREEN 3
#define IDS_COLOUR_CYAN 4
#define IDS_COLOUR_BLUE 5
#define IDS_COLOUR_MAGENTA 6
#define IDS_COLOUR_BLACK_WHITE 7
#define IDS_AUTO_DATE 8
#define IDS_AUTO_TIME 9
#define IDS_AUTO_DRAWING_NAME 10
#define IDS_JOB_NUMBER 11
#define IDS_WRONG_PASSWORD 13
#define IDS_ENTER_NEW_PASSWORD 14
#define IDS_REFERENCE_FORMAT 15
#define IDS_ONLY_P_C_R 16
#define IDS_ONLY_C_R 18
#define IDS_REPORT_TEMPLATES 19
#define IDS_DATABASE_FILES 20
#define IDS_IS_INVALID 21
#define IDS_FAULTY_TEXT_FIELD 22
#define IDS_TEXT_EMPTY 23
#define IDS_MINIMUM_IS 24
#define IDS_VALUE_ERROR 25
#define IDS_LANGUAGE 27
#define IDS_FORM 28
#define IDS_RULER 29
#define IDS_REVISION_NOTE 30
#define IDS_TITLE_BLOCK 31
#define IDS_CLOSE 32
#define IDS_BY_BLOCK 33
#define IDS_BY_LAYER 34
#define IDS_COLOUR 35
#define IDS_COMMENTS 37
#define IDS_CANCEL 38
