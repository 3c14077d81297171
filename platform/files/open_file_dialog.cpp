// The window of the open-file dialog: its controls, their places, and which of them does what.
#include "platform/files/open_file_dialog.h"

#include "platform/controls/control_base.h"
#include "platform/dialog/dialog_create.h"
#include "platform/dialog/dialog_state.h"
#include "platform/files/file_list_parts.h"
#include "platform/files/file_path.h"
#include "platform/files/open_file_parts.h"
#include "platform/graphics/scale.h"

#include <cderr.h>
#include <dlgs.h>

#include <algorithm>

namespace platform {

namespace {

constexpr short kFontSize = 8;       // Points.
constexpr int kDroppedHeight = 200;  // Pixels at 96 dots an inch, of the open drop-down lists.

// Dialog units.
constexpr short kWidth = 380;
constexpr short kHeight = 236;
constexpr int kLeastWidth = 230;
constexpr int kLeastHeight = 140;
constexpr int kMargin = 7;
constexpr int kGap = 4;
constexpr int kLabelWidth = 44;
constexpr int kLineHeight = 14;
constexpr int kEditHeight = 13;  // As high as a drop-down list that is closed.
constexpr int kLabelTop = 3;     // Below the top of the field beside it.
constexpr int kButtonWidth = 52;
constexpr int kPlaceButtonWidth = 32;

DialogItem makeItem(const char* className, int id, const char* text, DWORD style) {
    DialogItem item;
    item.className.text = className;
    item.id = static_cast<DWORD>(id);
    item.text.text = text;
    item.style = style | WS_VISIBLE;
    return item;
}

// In the order of the Tab key; the places come with the layout.
DialogTemplate dialogTemplate(const std::string& title) {
    constexpr DWORD kCombo = CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP;
    DialogTemplate source;
    source.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | DS_SETFONT | DS_CENTER;
    source.width = kWidth;
    source.height = kHeight;
    source.caption = title;
    source.pointSize = kFontSize;
    source.items = {
        makeItem("Static", stc4, "Leta &i:", SS_LEFT),
        makeItem("ComboBox", cmb2, "", kCombo | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS),
        makeItem("Button", kUpButtonId, "&Upp", BS_PUSHBUTTON | WS_TABSTOP),
        makeItem("Button", kHomeButtonId, "&Hem", BS_PUSHBUTTON | WS_TABSTOP),
        makeItem(kFileListClass, lst1, "", WS_BORDER | WS_TABSTOP),
        makeItem("Static", stc3, "Fil&namn:", SS_LEFT),
        makeItem("Edit", edt1, "", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP),
        makeItem("Static", stc2, "Fil&format:", SS_LEFT),
        makeItem("ComboBox", cmb1, "", kCombo),
        makeItem("Button", IDOK, "\xD6&ppna", BS_DEFPUSHBUTTON | WS_TABSTOP),
        makeItem("Button", IDCANCEL, "Avbryt", BS_PUSHBUTTON | WS_TABSTOP),
    };
    return source;
}

}  // namespace

bool OpenFileDialog::run() {
    if (ofn_.lStructSize != sizeof ofn_ && ofn_.lStructSize != OPENFILENAME_SIZE_VERSION_400A) {
        error_ = CDERR_STRUCTSIZE;
        return false;
    }
    if (!readChildTemplate()) {
        error_ = CDERR_FINDRESFAILURE;
        return false;
    }
    registerFileListClass();
    readFileTypes();
    const INT_PTR result = runDialog(GetModuleHandleA(nullptr), dialogTemplate(title()), ofn_.hwndOwner, dialogProc,
                                     reinterpret_cast<LPARAM>(this));
    if (result < 0) {
        error_ = CDERR_DIALOGFAILURE;
    }
    return result == IDOK;
}

std::string OpenFileDialog::title() const {
    return ofn_.lpstrTitle != nullptr && *ofn_.lpstrTitle != '\0' ? ofn_.lpstrTitle : "\xD6ppna";
}

FileList& OpenFileDialog::list() const {
    return FileList::of(item(lst1));
}

INT_PTR CALLBACK OpenFileDialog::dialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
        reinterpret_cast<OpenFileDialog*>(lParam)->onWmInitDialog(dialog);
        return FALSE;
    }
    auto* self = reinterpret_cast<OpenFileDialog*>(GetWindowLongPtrA(dialog, DWLP_USER));
    return self != nullptr ? self->handle(message, wParam, lParam) : FALSE;
}

INT_PTR OpenFileDialog::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            return onWmCommand(LOWORD(wParam), HIWORD(wParam));
        case WM_SIZE:
            onWmSize();
            return TRUE;
        case WM_GETMINMAXINFO:
            onWmGetMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam));
            return TRUE;
        case WM_MOVE:
        case WM_LBUTTONDOWN:
            name_->close();
            return FALSE;
        case WM_MOUSEWHEEL:
            onWmMouseWheel(wParam, lParam);
            return TRUE;
        case WM_DRAWITEM:
            onWmDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case CDM_SETCONTROLTEXT:
            SetDlgItemTextA(window_, static_cast<int>(wParam), reinterpret_cast<LPCSTR>(lParam));
            return TRUE;
        case kPlacePicked:
            onPlacePicked();
            return TRUE;
        case WM_DESTROY:
            name_.reset();
            return FALSE;
        default:
            return FALSE;
    }
}

void OpenFileDialog::onWmInitDialog(HWND dialog) {
    window_ = dialog;
    name_ = std::make_unique<NameField>(
        item(edt1), [this](const std::string& typed) { return namesFor(typed); }, [this] { goUp(); });
    SendDlgItemMessageA(window_, cmb2, CB_SETITEMHEIGHT, 0, toScale(kPictureSize + 1));
    for (const FileType& type : types_) {
        SendDlgItemMessageA(window_, cmb1, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(type.name.c_str()));
    }
    if (!types_.empty()) {
        const std::size_t index = std::clamp<std::size_t>(ofn_.nFilterIndex, 1, types_.size()) - 1;
        SendDlgItemMessageA(window_, cmb1, CB_SETCURSEL, index, 0);
        list().setPatterns(types_[index].patterns);
    }
    std::string name;
    const std::string folder = startFolder(name);
    createChild();
    if (!IsWindow(dialog)) {
        return;
    }
    // The child dialog makes the window higher, and wider where it needs that. A screen may have room for less.
    RECT frame;
    GetWindowRect(window_, &frame);
    RECT client;
    GetClientRect(window_, &client);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    const SIZE size = {
        std::min(frame.right - frame.left + std::max<LONG>(0, childWidth() - client.right), work.right - work.left),
        std::min(frame.bottom - frame.top + childHeight(), work.bottom - work.top)};
    const POINT at = centredPosition(size, ofn_.hwndOwner);
    SetWindowPos(window_, nullptr, at.x, at.y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    layOut();
    name_->setText(name);
    notifyHook(CDN_INITDONE);
    if (IsWindow(dialog) && goTo(folder, "")) {
        notifyHook(CDN_SELCHANGE);
    }
    if (IsWindow(dialog)) {
        focusControl(item(edt1));
    }
}

void OpenFileDialog::onWmSize() {
    name_->close();
    layOut();
    InvalidateRect(window_, nullptr, TRUE);
}

void OpenFileDialog::onWmGetMinMaxInfo(MINMAXINFO& info) const {
    info.ptMinTrackSize = {std::max(horizontalPixels(kLeastWidth), childWidth()),
                           verticalPixels(kLeastHeight) + childHeight()};
}

void OpenFileDialog::layOut() {
    RECT client;
    GetClientRect(window_, &client);
    const int margin = horizontalPixels(kMargin);
    const int gap = horizontalPixels(kGap);
    const int label = horizontalPixels(kLabelWidth);
    const int line = verticalPixels(kLineHeight);
    const int edit = verticalPixels(kEditHeight);
    const int button = horizontalPixels(kButtonWidth);
    const int placeButton = horizontalPixels(kPlaceButtonWidth);
    const int labelTop = verticalPixels(kLabelTop);
    const int right = client.right - margin;
    const int fieldLeft = margin + label;
    const auto place = [this](int id, int x, int y, int width, int height) {
        MoveWindow(item(id), x, y, std::max(width, 0), std::max(height, 0), TRUE);
    };

    int y = margin;
    const int upLeft = right - 2 * placeButton - gap;
    place(stc4, margin, y + labelTop, label, line - labelTop);
    place(cmb2, fieldLeft, y, upLeft - gap - fieldLeft, toScale(kDroppedHeight));
    place(kUpButtonId, upLeft, y, placeButton, line);
    place(kHomeButtonId, right - placeButton, y, placeButton, line);

    const int listTop = y + line + gap;
    y = client.bottom - childHeight() - margin - 2 * line - gap;
    place(lst1, margin, listTop, right - margin, y - gap - listTop);

    const int buttonLeft = right - button;
    const int fieldWidth = buttonLeft - 2 * gap - fieldLeft;
    place(stc3, margin, y + labelTop, label, line - labelTop);
    place(edt1, fieldLeft, y, fieldWidth, edit);
    place(IDOK, buttonLeft, y, button, line);
    y += line + gap;
    place(stc2, margin, y + labelTop, label, line - labelTop);
    place(cmb1, fieldLeft, y, fieldWidth, toScale(kDroppedHeight));
    place(IDCANCEL, buttonLeft, y, button, line);
    if (child_ != nullptr) {
        MoveWindow(child_, 0, client.bottom - childHeight(), client.right, childHeight(), TRUE);
    }
}

// A wheel that turns over the contents scrolls them, wherever the focus is.
void OpenFileDialog::onWmMouseWheel(WPARAM wParam, LPARAM lParam) {
    const POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    RECT contents;
    GetWindowRect(item(lst1), &contents);
    if (PtInRect(&contents, at) && GetFocus() != item(lst1)) {
        SendMessageA(item(lst1), WM_MOUSEWHEEL, wParam, lParam);
    }
}

bool OpenFileDialog::onWmCommand(int id, UINT code) {
    switch (id) {
        case IDOK:
            accept();
            return true;
        case IDCANCEL:
            EndDialog(window_, IDCANCEL);
            return true;
        case kUpButtonId:
            goUp();
            return true;
        case kHomeButtonId:
            goTo(homeFolder(), "");
            return true;
        case edt1:
            if (code == EN_CHANGE) {
                onNameTyped();
            }
            return true;
        case cmb1:
            if (code == CBN_SELCHANGE) {
                onTypeChange();
            }
            return true;
        case cmb2:
            if (code == CBN_SELENDOK) {
                PostMessageA(window_, kPlacePicked, 0, 0);
            }
            return true;
        case lst1:
            if (code == LBN_SELCHANGE) {
                onListSelection();
            } else if (code == LBN_DBLCLK) {
                accept();
            } else if (code == kFileListUp) {
                goUp();
            } else if (code == kFileListReread) {
                reread();
            }
            return true;
        default:
            return false;
    }
}

// Descriptions and patterns follow each other, each with its end mark; an empty description ends them.
void OpenFileDialog::readFileTypes() {
    const char* at = ofn_.lpstrFilter;
    while (at != nullptr && *at != '\0') {
        const std::string name = at;
        at += name.size() + 1;
        const std::string patterns = at;
        at += patterns.size() + 1;
        types_.push_back({name, splitPatterns(patterns)});
    }
}

void OpenFileDialog::onTypeChange() {
    const LRESULT index = SendDlgItemMessageA(window_, cmb1, CB_GETCURSEL, 0, 0);
    if (index < 0 || static_cast<std::size_t>(index) >= types_.size()) {
        return;
    }
    ofn_.nFilterIndex = static_cast<DWORD>(index) + 1;
    HWND dialog = window_;
    notifyHook(CDN_TYPECHANGE);
    if (IsWindow(dialog)) {
        list().setPatterns(types_[static_cast<std::size_t>(index)].patterns);
    }
}

}  // namespace platform

namespace {

DWORD lastError = 0;

}  // namespace

BOOL GetOpenFileNameA(OPENFILENAMEA* ofn) {
    lastError = 0;
    if (ofn == nullptr) {
        return FALSE;
    }
    platform::OpenFileDialog dialog(*ofn);
    const bool accepted = dialog.run();
    lastError = dialog.error();
    return accepted ? TRUE : FALSE;
}

DWORD CommDlgExtendedError() {
    return lastError;
}
