// The file dialogs of the page "Projektbeskrivning": each with a few controls of its own inside, and the folder that
// its edit names shown first.
#pragma once

#include "framework/framework.h"

struct PickedFile {
    CString path;
    // Where the file's name begins in the path.
    int nameOffset = 0;

    // With its final separator.
    CString Folder() const { return path.Left(nameOffset); }
    CString Name() const { return path.Mid(nameOffset); }
};

// Run the dialog over the page; FALSE when nothing was chosen or the page is gone.
BOOL PickDatabase(CWnd& page, PickedFile& file);
BOOL PickReportTemplate(CWnd& page, PickedFile& file);

// Whether all files of the folder were asked for in the database dialog that ran last.
BOOL AreAllFilesMeant();

// The folder that a path edit names: what stands before a "*", else before the last separator; empty for a bare name.
// Both separators count, since a settings store may come from either system.
CString FolderShownFirst(const CString& path);
