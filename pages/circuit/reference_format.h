// The format of cross-references: a short text of letters, which stand for parts of a reference, and separators. In
// stores each letter has a mark before it.
#pragma once

#include "framework/framework.h"

// The most characters that the page shows.
constexpr int kShownFormatLength = 6;

// Without any mark, wherever it stands.
CString ShownFormat(const CString& stored);
// With a mark before every letter, also before those that mean nothing.
CString StoredFormat(const CString& shown);

// The format with a character at a position: in the place of the one there, or at the end of a shorter format.
CString WithFormatChar(const CString& format, int position, char character);
// With a blank put in, at the end of a shorter format. A full format loses its last shown character for it.
CString WithFormatBlank(const CString& format, int position);
// Without the character, if there is one.
CString WithoutFormatChar(const CString& format, int position);
