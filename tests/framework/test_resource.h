// Ids of the test program's own resources.
#pragma once

#define IDD_FIELDS 100
#define IDD_LARGE 101
#define IDD_MISSING 999

#define IDC_TEXT 200
#define IDC_OTHER 201
#define IDC_COMBO 202
#define IDC_LIST 203
#define IDC_RADIO_FIRST 204
#define IDC_RADIO_MIDDLE 205
#define IDC_RADIO_LAST 206
#define IDC_CHECK 207
