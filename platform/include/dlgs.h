// Ids of the controls of the open-file dialog.
#pragma once

#define stc2 0x0441   // Label of the file types.
#define stc3 0x0442   // Label of the file name.
#define stc4 0x0443   // Label of the folder.
#define lst1 0x0460   // The folder's contents.
#define lst2 0x0461   // The same, where it is a view with the list inside it.
#define cmb1 0x0470   // The file types.
#define cmb2 0x0471   // The folder and those above it.
#define cmb13 0x047c  // The file name, where that is a combo box.
#define edt1 0x0480   // The file name, where that is an edit.
