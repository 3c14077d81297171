// The open-file dialog: a folder's contents, the name field, the file types, and below them the caller's own child
// dialog. It keeps nothing from one opening to the next. Deliberately missing are saving, several files at a time and
// the read-only box.
#pragma once

#include "platform/dialog/dialog_template.h"
#include "platform/files/file_list.h"
#include "platform/files/name_field.h"

#include <windows.h>

#include <commdlg.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform {

class OpenFileDialog {
public:
    explicit OpenFileDialog(OPENFILENAMEA& ofn) : ofn_(ofn) {}

    // Runs the dialog until it is answered. False for a cancelled one and for an error.
    bool run();
    // The number of the error, 0 for none.
    DWORD error() const { return error_; }

private:
    struct FileType {
        std::string name;
        std::vector<std::string> patterns;
    };
    // A folder of the drop-down list above the contents.
    struct Place {
        std::string folder;
        int depth;
    };

    static INT_PTR CALLBACK dialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);
    void onWmInitDialog(HWND dialog);
    void onWmSize();
    void onWmGetMinMaxInfo(MINMAXINFO& info) const;
    void onWmMouseWheel(WPARAM wParam, LPARAM lParam);
    bool onWmCommand(int id, UINT code);
    void onWmDrawItem(const DRAWITEMSTRUCT& draw) const;
    HWND item(int id) const { return GetDlgItem(window_, id); }
    FileList& list() const;
    std::string title() const;
    void layOut();

    // The file types.
    void readFileTypes();
    void onTypeChange();

    // The folder. Paths are the file system's, in UTF-8.
    std::string startFolder(std::string& name) const;
    bool containsFiles(const std::string& folder) const;
    bool goTo(const std::string& folder, const std::string& select);
    void complainOfFolder(const std::string& folder, int error);
    void goUp();
    void reread();
    void showPlaces();
    void enablePlaceButton(int id, bool enable);
    void onPlacePicked();

    // The name. Typed text is code page 1252.
    void onNameTyped();
    void onListSelection();
    std::vector<std::string> namesFor(const std::string& typed) const;
    // Takes what stands in the name field, or the folder that is selected in the list.
    void accept();
    void acceptName(const std::string& typed);
    void acceptEntry(const FolderEntry& entry);
    bool acceptFolderOrPattern(const std::string& typed, const std::string& path);
    bool isAllowed(const std::string& path);
    void acceptPath(const std::string& path);
    void giveResult(const std::string& path);
    void refuseSize(const std::string& path);
    void complain(const std::string& text);

    // The caller's child dialog and hook procedure.
    static INT_PTR CALLBACK childProc(HWND child, UINT message, WPARAM wParam, LPARAM lParam);
    bool readChildTemplate();
    void createChild();
    int childHeight() const;
    int childWidth() const;
    // Returns what the child dialog answers; 0 without one. The dialog may be gone or ended afterwards.
    LRESULT notifyHook(UINT code);

    OPENFILENAMEA& ofn_;
    DWORD error_ = 0;
    HWND window_ = nullptr;
    HWND child_ = nullptr;
    std::optional<DialogTemplate> childTemplate_;
    std::vector<FileType> types_;
    std::vector<Place> places_;
    std::unique_ptr<NameField> name_;
    std::string folder_ = "/";   // What is shown; absolute.
    bool folderPicked_ = false;  // The list's selection is a folder, and the name field has not been touched since.
    bool nameFromList_ = false;  // The name field shows the list's selection.
};

}  // namespace platform
