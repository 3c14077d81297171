// Key operations on a store of settings records. Every one acts on the first record, in list order, that has both a
// key equal to the given one (byte by byte) and a value; records without either are passed over.
// A lookup is one walk of the list: stores hold one record a setting, and no index is kept.
#pragma once

#include "include/tavrikconfig.h"

// The 1-based index of the record with the key, 0 when there is none. `record` receives the record or null.
int FindSetting(const CMdb* store, const char* key, CMdbRecord*& record);

// Sets the value of the record with the key, or appends a record. Returns 1, or 0 when memory ran out; the store is
// then as it was.
int SetSetting(CMdb* store, const char* key, const char* value);

// Sets every setting of `from` in `to` and marks the records of `to` that were there before as changed.
// Appended records keep the flag 0; `from` stays as it is. Returns 1, or 0 when memory ran out for one of the settings,
// which is then dropped.
int MergeSettingRecords(const CMdb* from, CMdb* to);

// The same for all settings or none: where memory runs out it returns 0, and `to` is as it was. A key stands in `from`
// once.
int CommitSettingRecords(const CMdb* from, CMdb* to);

// The record with the key; null when there is none, when the store or the key is null, or when the key is empty.
CMdbRecord* FindSettingRecord(const CMdb* store, const char* key);

// Sets the value of the record with the key, or appends a record. Returns 1 when the value was stored, else 0: a null
// argument, or no memory.
// With an empty key nothing can be stored under it: the result is 0, and the placeholder record stays behind.
int WriteSetting(CMdb* store, const char* key, const char* value);
