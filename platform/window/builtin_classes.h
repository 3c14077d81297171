// The window classes that the system itself offers. Each control room registers its own; the window room calls
// them once, before the first window is created. The controls are written against the window API alone.
#pragma once

namespace platform {

void registerDialogClass();     // "#32770"
void registerStaticClass();     // "Static"
void registerButtonClass();     // "Button"
void registerEditClass();       // "Edit"
void registerListBoxClasses();  // "ListBox" and the drop-down list "ComboLBox"
void registerComboBoxClass();   // "ComboBox"
void registerTabClass();        // "SysTabControl32"

}  // namespace platform
