// From a typed or picked name to the answer of the open-file dialog.
#include "platform/controls/control_base.h"
#include "platform/dialog/dialog_state.h"
#include "platform/files/file_path.h"
#include "platform/files/open_file_dialog.h"
#include "platform/files/open_file_parts.h"
#include "platform/files/swedish_text.h"
#include "platform/resources/code_page.h"

#include <cderr.h>
#include <dlgs.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace platform {

namespace {

constexpr std::size_t kMostOffered = 100;

bool exists(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0;
}

bool isRegularFile(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

}  // namespace

void OpenFileDialog::complain(const std::string& text) {
    HWND dialog = window_;
    MessageBoxA(dialog, text.c_str(), title().c_str(), MB_OK | MB_ICONEXCLAMATION);
    // Back to where the fault can be mended: the list when it came from there, else the name.
    if (IsWindow(dialog) && GetFocus() != item(lst1)) {
        focusControl(item(edt1));
    }
}

void OpenFileDialog::onNameTyped() {
    if (name_ == nullptr || name_->isBeingSet()) {
        return;
    }
    folderPicked_ = false;
    nameFromList_ = false;
    list().clearSelection();
    name_->offer();
}

void OpenFileDialog::onListSelection() {
    const FolderEntry* entry = list().selected();
    if (entry != nullptr) {
        folderPicked_ = entry->isFolder;
        if (!entry->isFolder) {
            nameFromList_ = true;
            name_->setText(entry->shown);
        }
    }
    notifyHook(CDN_SELCHANGE);
}

// Names in the folder that the text names, which begin with the rest of it.
std::vector<std::string> OpenFileDialog::namesFor(const std::string& typed) const {
    const std::size_t nameAt = fileNameOffset(typed);
    const std::string before = typed.substr(0, nameAt);
    const std::string prefix = typed.substr(nameAt);
    const std::string folder = resolvePath(codePageToUtf8(before), folder_, homeFolder());
    FolderListing elsewhere;
    const FolderListing* listing = &list().listing();
    if (folder != folder_) {
        if (elsewhere.open(folder) != 0) {
            return {};
        }
        constexpr std::chrono::milliseconds kPatience{20};
        elsewhere.advance(FolderListing::Clock::now() + kPatience);
        listing = &elsewhere;
    }
    std::vector<std::string> names;
    for (std::size_t row = 0; row < listing->rowCount() && names.size() < kMostOffered; ++row) {
        const FolderEntry& entry = listing->row(row);
        if (entry.isNameable && beginsWith(entry.shown, prefix)) {
            names.push_back(before + entry.shown + (entry.isFolder ? "/" : ""));
        }
    }
    return names;
}

void OpenFileDialog::accept() {
    name_->close();
    const FolderEntry* entry = list().selected();
    if (entry != nullptr && (folderPicked_ || nameFromList_ || GetFocus() == item(lst1))) {
        acceptEntry(*entry);
        return;
    }
    const std::string typed = trimmedName(windowText(item(edt1)));
    if (!typed.empty()) {
        acceptName(typed);
    }
}

void OpenFileDialog::acceptEntry(const FolderEntry& entry) {
    if (!entry.isNameable) {
        complain("Namnet " + quoted(entry.shown) +
                 " inneh\xE5ller tecken som inte kan anv\xE4ndas h\xE4r.\n"
                 "Byt namn p\xE5 den eller v\xE4lj en annan.");
    } else if (entry.isFolder) {
        goTo(pathInFolder(folder_, entry.name), "");
    } else {
        acceptPath(pathInFolder(folder_, entry.name));
    }
}

void OpenFileDialog::acceptName(const std::string& typed) {
    std::string path = resolvePath(codePageToUtf8(typed), folder_, homeFolder());
    if (acceptFolderOrPattern(typed, path)) {
        return;
    }
    const bool hasDefault = ofn_.lpstrDefExt != nullptr && *ofn_.lpstrDefExt != '\0';
    if (hasDefault && fileExtensionOffset(path) == 0 && !exists(path)) {
        path += '.' + codePageToUtf8(ofn_.lpstrDefExt);
    }
    acceptPath(path);
}

// A folder is opened, and a pattern chooses what is shown of it.
bool OpenFileDialog::acceptFolderOrPattern(const std::string& typed, const std::string& path) {
    if (isFolder(path)) {
        nameFromList_ = true;  // So that the name goes with the change.
        goTo(path, "");
        return true;
    }
    if (endsWithSeparator(typed)) {
        complain("Mappen " + quoted(typed) + " finns inte.\nKontrollera namnet.");
        return true;
    }
    const std::size_t nameAt = fileNameOffset(typed);
    const std::string name = typed.substr(nameAt);
    if (!hasWildcard(name)) {
        return false;
    }
    if (nameAt == 0 || goTo(resolvePath(codePageToUtf8(typed.substr(0, nameAt)), folder_, homeFolder()), "")) {
        list().setPatterns(splitPatterns(name));
    }
    return true;
}

bool OpenFileDialog::isAllowed(const std::string& path) {
    const std::string shown = shownPath(path);
    if (codePageToUtf8(shown) != path) {
        complain("S\xF6kv\xE4gen " + quoted(shown) +
                 " inneh\xE5ller tecken som inte kan anv\xE4ndas h\xE4r.\nV\xE4lj en fil i en annan mapp.");
        return false;
    }
    if ((ofn_.Flags & (OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST)) != 0 && !isFolder(parentFolder(path))) {
        complain("Mappen " + quoted(shownPath(parentFolder(path))) + " finns inte.\nKontrollera namnet.");
        return false;
    }
    if ((ofn_.Flags & OFN_FILEMUSTEXIST) != 0 && !exists(path)) {
        complain("Filen " + quoted(shown) + " finns inte.\nKontrollera namnet.");
        return false;
    }
    if (exists(path) && !isRegularFile(path)) {
        complain(quoted(shown) + " \xE4r ingen vanlig fil.\nV\xE4lj en annan.");
        return false;
    }
    return true;
}

void OpenFileDialog::acceptPath(const std::string& path) {
    if (!isAllowed(path)) {
        return;
    }
    const std::string result = shownPath(path);
    if (result.size() >= ofn_.nMaxFile || ofn_.lpstrFile == nullptr) {
        refuseSize(result);
        return;
    }
    giveResult(result);
    HWND dialog = window_;
    if (notifyHook(CDN_FILEOK) != 0 || !IsWindow(dialog)) {
        return;
    }
    if ((ofn_.Flags & OFN_NOCHANGEDIR) == 0) {
        std::error_code ignored;  // A file that does not exist may have no folder; then the current one stays.
        std::filesystem::current_path(parentFolder(path), ignored);
    }
    EndDialog(dialog, IDOK);
}

void OpenFileDialog::giveResult(const std::string& path) {
    std::memcpy(ofn_.lpstrFile, path.c_str(), path.size() + 1);
    ofn_.nFileOffset = static_cast<WORD>(fileNameOffset(path));
    ofn_.nFileExtension = static_cast<WORD>(fileExtensionOffset(path));
    if (ofn_.lpstrFileTitle != nullptr && ofn_.nMaxFileTitle > 0) {
        const std::string name = path.substr(ofn_.nFileOffset, ofn_.nMaxFileTitle - 1);
        std::memcpy(ofn_.lpstrFileTitle, name.c_str(), name.size() + 1);
    }
}

// A path that no usual buffer could hold is the user's to shorten; a smaller buffer is the caller's fault.
void OpenFileDialog::refuseSize(const std::string& path) {
    if (path.size() >= MAX_PATH && ofn_.lpstrFile != nullptr) {
        complain("S\xF6kv\xE4gen \xE4r f\xF6r l\xE5ng: " + std::to_string(path.size()) + " tecken, h\xF6gst " +
                 std::to_string(std::max<DWORD>(ofn_.nMaxFile, MAX_PATH) - 1) + " kan anv\xE4ndas.");
        return;
    }
    const auto needed = static_cast<WORD>(path.size() + 1);
    if (ofn_.lpstrFile != nullptr && ofn_.nMaxFile >= sizeof needed) {
        std::memcpy(ofn_.lpstrFile, &needed, sizeof needed);
    }
    error_ = FNERR_BUFFERTOOSMALL;
    EndDialog(window_, IDCANCEL);
}

}  // namespace platform
