// The folder that the open-file dialog shows: where it begins, how it changes, and the list of the folders above.
#include "platform/controls/control_base.h"
#include "platform/files/file_list_parts.h"
#include "platform/files/file_path.h"
#include "platform/files/open_file_dialog.h"
#include "platform/files/open_file_parts.h"
#include "platform/graphics/scale.h"
#include "platform/resources/code_page.h"

#include <dlgs.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace platform {

namespace {

constexpr int kIndent = 12;  // Pixels at 96 dots an inch, of a folder below the one above.

const char* reasonOf(int error) {
    switch (error) {
        case EACCES:
        case EPERM:
            return "Du saknar beh\xF6righet.";
        case ENOENT:
            return "Den finns inte.";
        case ENOTDIR:
            return "Den \xE4r ingen mapp.";
        default:
            return "Den kan inte l\xE4sas.";
    }
}

bool isReadableFolder(const std::string& path) {
    return isFolder(path) && access(path.c_str(), R_OK | X_OK) == 0;
}

// The last part of the path, which says most, with as much before it as there is room for.
std::string fittingEnd(HDC dc, const std::string& path, int room) {
    std::string text = path;
    SIZE size{};
    for (std::size_t cut = 1; cut < path.size(); ++cut) {
        GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
        if (size.cx <= room) {
            break;
        }
        text = "..." + path.substr(cut);
    }
    return text;
}

}  // namespace

std::string homeFolder() {
    const char* home = std::getenv("HOME");
    if (home != nullptr && *home == '/') {
        return resolvePath(home, "/", "/");
    }
    const passwd* user = getpwuid(getuid());
    return user != nullptr && user->pw_dir != nullptr ? resolvePath(user->pw_dir, "/", "/") : "/";
}

std::string currentFolder() {
    std::error_code error;
    const std::filesystem::path current = std::filesystem::current_path(error);
    return error ? homeFolder() : current.string();
}

bool isFolder(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string shownPath(const std::string& path) {
    return utf8ToCodePage(path, Unmapped::QuestionMark);
}

// The folder of the file that is given first, else the folder that is given, else the current one if it contains
// files of the chosen type, else the user's own. `name` gets the file's name.
std::string OpenFileDialog::startFolder(std::string& name) const {
    const std::string file = ofn_.lpstrFile != nullptr ? ofn_.lpstrFile : "";
    const std::size_t nameAt = fileNameOffset(file);
    name = file.substr(nameAt);
    for (const std::string& given :
         {file.substr(0, nameAt), std::string(ofn_.lpstrInitialDir != nullptr ? ofn_.lpstrInitialDir : "")}) {
        std::string folder = resolvePath(codePageToUtf8(given), currentFolder(), homeFolder());
        if (!given.empty() && isReadableFolder(folder)) {
            return folder;
        }
    }
    if (containsFiles(currentFolder())) {
        return currentFolder();
    }
    return isReadableFolder(homeFolder()) ? homeFolder() : "/";
}

bool OpenFileDialog::containsFiles(const std::string& folder) const {
    FolderListing listing;
    if (listing.open(folder) != 0) {
        return false;
    }
    const std::size_t index = std::max<std::size_t>(ofn_.nFilterIndex, 1) - 1;
    listing.setPatterns(index < types_.size() ? types_[index].patterns : std::vector<std::string>());
    constexpr std::chrono::milliseconds kPatience{20};
    listing.advance(FolderListing::Clock::now() + kPatience);
    // Folders come first.
    return listing.rowCount() > 0 && !listing.row(listing.rowCount() - 1).isFolder;
}

bool OpenFileDialog::goTo(const std::string& folder, const std::string& select) {
    const int error = list().openFolder(folder, select);
    if (error != 0) {
        complainOfFolder(folder, error);
        return false;
    }
    folder_ = folder;
    folderPicked_ = false;
    if (nameFromList_) {
        nameFromList_ = false;
        name_->setText("");
    }
    showPlaces();
    HWND dialog = window_;
    notifyHook(CDN_FOLDERCHANGE);
    return IsWindow(dialog) != FALSE;
}

void OpenFileDialog::complainOfFolder(const std::string& folder, int error) {
    complain("Mappen \"" + shownPath(folder) + "\" kan inte \xF6ppnas.\n" + reasonOf(error));
}

void OpenFileDialog::reread() {
    const FolderEntry* kept = list().selected();
    const int error = list().openFolder(folder_, kept != nullptr ? kept->name : "");
    if (error != 0) {
        complainOfFolder(folder_, error);
    }
}

void OpenFileDialog::goUp() {
    if (folder_ != "/") {
        goTo(parentFolder(folder_), folder_.substr(fileNameOffset(folder_)));
    }
}

// The shown folder below all those that contain it, and the home folder.
void OpenFileDialog::showPlaces() {
    places_.clear();
    for (std::string folder = folder_;; folder = parentFolder(folder)) {
        places_.insert(places_.begin(), {folder, 0});
        if (folder == "/") {
            break;
        }
    }
    for (std::size_t i = 0; i < places_.size(); ++i) {
        places_[i].depth = static_cast<int>(i);
    }
    const std::size_t current = places_.size() - 1;
    const auto isHome = [](const Place& place) { return place.folder == homeFolder(); };
    if (std::none_of(places_.begin(), places_.end(), isHome)) {
        places_.push_back({homeFolder(), 0});
    }
    SendDlgItemMessageA(window_, cmb2, CB_RESETCONTENT, 0, 0);
    for (const Place& place : places_) {
        const std::string text = shownPath(place.folder);
        SendDlgItemMessageA(window_, cmb2, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    SendDlgItemMessageA(window_, cmb2, CB_SETCURSEL, current, 0);
    enablePlaceButton(kUpButtonId, folder_ != "/");
    enablePlaceButton(kHomeButtonId, folder_ != homeFolder());
}

// A button that has led to where it leads no further hands the focus on.
void OpenFileDialog::enablePlaceButton(int id, bool enable) {
    if (!enable && GetFocus() == item(id)) {
        SendMessageA(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(item(lst1)), TRUE);
    }
    EnableWindow(item(id), enable);
}

void OpenFileDialog::onPlacePicked() {
    const LRESULT index = SendDlgItemMessageA(window_, cmb2, CB_GETCURSEL, 0, 0);
    if (index < 0 || static_cast<std::size_t>(index) >= places_.size()) {
        return;
    }
    const std::string folder = places_[static_cast<std::size_t>(index)].folder;
    if (folder != folder_) {
        // Of the folders above, the one below is where the user comes from.
        const std::string inside = endsWithSeparator(folder) ? folder : folder + "/";
        const bool above = folder_.compare(0, inside.size(), inside) == 0;
        const std::string below = above ? folder_.substr(inside.size()) : "";
        goTo(folder, below.substr(0, below.find('/')));
    }
}

// The open list shows a tree of names, the closed one the whole path.
void OpenFileDialog::onWmDrawItem(const DRAWITEMSTRUCT& draw) const {
    if (draw.itemID >= places_.size()) {
        return;
    }
    const Place& place = places_[draw.itemID];
    const bool isField = (draw.itemState & ODS_COMBOBOXEDIT) != 0;
    const bool selected = (draw.itemState & ODS_SELECTED) != 0;
    RECT rect = draw.rcItem;
    FillRect(draw.hDC, &rect, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    rect.left += toScale(2) + (isField ? 0 : place.depth * toScale(kIndent));
    drawFilePicture(draw.hDC, {rect.left, (rect.top + rect.bottom - toScale(kPictureSize)) / 2}, true);
    rect.left += toScale(kPictureSize) + toScale(kCellPadding);
    std::string text = shownPath(place.folder);
    if (isField) {
        text = fittingEnd(draw.hDC, text, rect.right - rect.left);
    } else if (place.depth > 0) {
        text = text.substr(fileNameOffset(text));
    } else {
        text = place.folder == "/" ? "Filsystem" : "Hem";
    }
    SetBkMode(draw.hDC, TRANSPARENT);
    SetTextColor(draw.hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    DrawTextA(draw.hDC, text.c_str(), static_cast<int>(text.size()), &rect,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace platform
