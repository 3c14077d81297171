// Messages of the combo box and its layout.
#include "platform/controls/combo_box.h"

#include "platform/controls/combo_parts.h"
#include "platform/controls/control_base.h"
#include "platform/controls/edit_text.h"
#include "platform/graphics/scale.h"
#include "platform/window/builtin_classes.h"

#include <algorithm>
#include <cstring>

namespace platform {
namespace {

// All in pixels at 96 dots an inch.
constexpr int kEditPadding = 1;   // Between the sunken edge and the edit.
constexpr int kTextPadding = 2;   // Above and below the text of the field.
constexpr int kOwnerPadding = 6;  // As observed, of a field that the owner draws, in all.

struct ForwardedMessage {
    UINT combo;
    UINT list;
};

// Answered by the list with the same parameters.
constexpr ForwardedMessage kListMessages[] = {
    {CB_INSERTSTRING, LB_INSERTSTRING}, {CB_DELETESTRING, LB_DELETESTRING},
    {CB_GETCOUNT, LB_GETCOUNT},         {CB_GETCURSEL, LB_GETCURSEL},
    {CB_GETLBTEXT, LB_GETTEXT},         {CB_GETLBTEXTLEN, LB_GETTEXTLEN},
    {CB_FINDSTRING, LB_FINDSTRING},     {CB_FINDSTRINGEXACT, LB_FINDSTRINGEXACT},
    {CB_GETITEMDATA, LB_GETITEMDATA},   {CB_SETITEMDATA, LB_SETITEMDATA},
};

struct StylePair {
    DWORD combo;
    DWORD part;
};

constexpr StylePair kListStyles[] = {
    {CBS_SORT, LBS_SORT},
    {CBS_HASSTRINGS, LBS_HASSTRINGS},
    {CBS_OWNERDRAWFIXED, LBS_OWNERDRAWFIXED | LBS_NOTIFY},
    {CBS_NOINTEGRALHEIGHT, LBS_NOINTEGRALHEIGHT},
    {CBS_DISABLENOSCROLL, LBS_DISABLENOSCROLL},
    {WS_VSCROLL, WS_VSCROLL},
};
constexpr StylePair kEditStyles[] = {
    {CBS_AUTOHSCROLL, ES_AUTOHSCROLL},
    {CBS_UPPERCASE, ES_UPPERCASE},
    {WS_DISABLED, WS_DISABLED},
};

template <std::size_t count>
DWORD partStyle(DWORD comboStyle, const StylePair (&pairs)[count]) {
    DWORD style = 0;
    for (const StylePair& pair : pairs) {
        style |= comboStyle & pair.combo ? pair.part : 0U;
    }
    return style;
}

}  // namespace

void registerComboBoxClass() {
    registerControlClass<ComboBox>("ComboBox", CS_PARENTDC | CS_HREDRAW | CS_VREDRAW);
}

bool ComboBox::has(DWORD style) const {
    return (styleOf(window_) & style) != 0;
}

LRESULT ComboBox::askList(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageA(list_, message, wParam, lParam);
}

bool ComboBox::notify(UINT code) {
    const HWND window = window_;
    notifyCommand(window, code);
    return IsWindow(window) != FALSE;
}

LRESULT ComboBox::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (onForwarded(message, wParam, lParam, result) || onComboMessage(message, wParam, lParam, result) ||
        onInput(message, wParam, lParam, result) || onPartMessage(message, wParam, lParam, result)) {
        return result;
    }
    switch (message) {
        case WM_NCCREATE:
            return onWmNcCreate(lParam);
        case WM_CREATE:
            return onWmCreate(*reinterpret_cast<const CREATESTRUCTA*>(lParam)) ? 0 : -1;
        case WM_DESTROY:
            onWmDestroy();
            return 0;
        case WM_WINDOWPOSCHANGING:
            onWmWindowPosChanging(*reinterpret_cast<WINDOWPOS*>(lParam));
            return 0;
        case WM_SIZE:
            layout();
            return 0;
        case WM_SETFONT:
            onWmSetFont(reinterpret_cast<HFONT>(wParam), LOWORD(lParam) != 0);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_ENABLE:
            onWmEnable(wParam != 0);
            return 0;
        case WM_SETREDRAW:
            onWmSetRedraw(wParam);
            return 0;
        case WM_STYLECHANGED:
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        case WM_ERASEBKGND:
            return TRUE;  // Painting covers everything.
        case WM_PAINT:
        case WM_PRINTCLIENT:
            onWmPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_GETDLGCODE:
            return onWmGetDlgCode(reinterpret_cast<const MSG*>(lParam));
        case WM_SETTEXT:
        case WM_GETTEXT:
        case WM_GETTEXTLENGTH:
        case WM_CUT:
        case WM_COPY:
        case WM_PASTE:
        case WM_CLEAR:
            return onTextMessage(message, wParam, lParam);
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

// The messages that the list answers. False for any other.
bool ComboBox::onForwarded(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    for (const ForwardedMessage& forwarded : kListMessages) {
        if (forwarded.combo == message) {
            const HWND window = window_;
            result = askList(forwarded.list, wParam, lParam);
            if (message == CB_DELETESTRING && IsWindow(window) && !edit_) {
                InvalidateRect(window_, &item_, FALSE);
            }
            return true;
        }
    }
    return false;
}

// What is added gets the case that the field has; what is inserted or searched for does not, as observed.
LRESULT ComboBox::onCbAddString(LPARAM entry) const {
    const bool isText = !has(CBS_OWNERDRAWFIXED) || has(CBS_HASSTRINGS);
    if (!isText || entry == 0 || !has(CBS_UPPERCASE)) {
        return askList(LB_ADDSTRING, 0, entry);
    }
    const std::string text = upperCase(reinterpret_cast<LPCSTR>(entry));
    return askList(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

// The other messages of combo boxes. False for any other.
bool ComboBox::onComboMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const int index = static_cast<int>(wParam);
    switch (message) {
        case CB_ADDSTRING:
            result = onCbAddString(lParam);
            return true;
        case CB_SETCURSEL:
            result = onCbSetCurSel(index);
            return true;
        case CB_SELECTSTRING:
            result = onCbSelectString(index, lParam);
            return true;
        case CB_RESETCONTENT:
            result = onCbResetContent();
            return true;
        case CB_SHOWDROPDOWN:
            result = onCbShowDropDown(wParam != 0);
            return true;
        case CB_GETDROPPEDSTATE:
            result = open_;
            return true;
        case CB_SETITEMHEIGHT:
            result = onCbSetItemHeight(index, static_cast<int>(lParam));
            return true;
        case CB_GETITEMHEIGHT:
            result = index == -1 ? fieldHeight_ : askList(LB_GETITEMHEIGHT);
            return true;
        case CB_SETEDITSEL:
            result =
                edit_ ? SendMessageA(edit_, EM_SETSEL, static_cast<WPARAM>(GET_X_LPARAM(lParam)), GET_Y_LPARAM(lParam))
                      : CB_ERR;
            return true;
        case CB_LIMITTEXT:
            result = edit_ ? SendMessageA(edit_, EM_SETLIMITTEXT, wParam, lParam) : TRUE;
            return true;
        case CB_GETCOMBOBOXINFO:
            result = onCbGetComboBoxInfo(reinterpret_cast<COMBOBOXINFO*>(lParam));
            return true;
        default:
            return false;
    }
}

LRESULT ComboBox::onWmNcCreate(LPARAM lParam) {
    // The border is drawn by the combo box itself, and the scroll bar is the list's.
    constexpr DWORD kOwnParts = WS_BORDER | WS_HSCROLL | WS_VSCROLL;
    SetWindowLongA(window_, GWL_STYLE, static_cast<LONG>(styleOf(window_) & ~kOwnParts));
    return DefWindowProcA(window_, WM_NCCREATE, 0, lParam);
}

bool ComboBox::onWmCreate(const CREATESTRUCTA& create) {
    fieldHeight_ = fontFieldHeight();
    if (has(CBS_OWNERDRAWFIXED)) {
        measureField();
    }
    list_ = createList(create);
    const bool hasEdit = (create.style & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST;
    edit_ = hasEdit ? createEdit(create) : nullptr;
    if (!list_ || (hasEdit && !edit_)) {
        return false;
    }
    // The height that the combo box is created with is that of the open one.
    WINDOWPOS position{};
    position.cy = create.cy;
    onWmWindowPosChanging(position);
    resizeToField();
    layout();
    return true;
}

HWND ComboBox::createList(const CREATESTRUCTA& create) {
    const auto comboStyle = static_cast<DWORD>(create.style);
    DWORD style =
        WS_CHILD | WS_CLIPSIBLINGS | WS_BORDER | LBS_COMBOBOX | LBS_NOTIFY | partStyle(comboStyle, kListStyles);
    if (!(comboStyle & CBS_OWNERDRAWFIXED)) {
        style |= LBS_HASSTRINGS;
    }
    return CreateWindowExA(WS_EX_TOOLWINDOW, "ComboLBox", "", style, 0, 0, create.cx, create.cy, GetDesktopWindow(),
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(kComboListId)), create.hInstance, window_);
}

HWND ComboBox::createEdit(const CREATESTRUCTA& create) {
    const DWORD style = WS_CHILD | WS_VISIBLE | ES_NOHIDESEL | kComboEditStyle |
                        partStyle(static_cast<DWORD>(create.style), kEditStyles);
    return CreateWindowExA(0, "Edit", "", style, 0, 0, 0, 0, window_,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(kComboEditId)), create.hInstance, nullptr);
}

void ComboBox::onWmDestroy() {
    DestroyWindow(list_);
    list_ = nullptr;
}

int ComboBox::fontFieldHeight() const {
    TEXTMETRICA metrics;
    const WindowDc dc(window_);
    {
        const SelectedFont selected(dc, font_);
        GetTextMetricsA(dc, &metrics);
    }
    return metrics.tmHeight + 2 * toScale(kTextPadding);
}

// Asks the parent for the height of what it draws in the field.
void ComboBox::measureField() {
    MEASUREITEMSTRUCT measure{};
    measure.itemID = static_cast<UINT>(-1);
    measure.itemHeight = static_cast<UINT>(fieldHeight_ - toScale(kOwnerPadding));
    askParent(measure);
    fieldHeight_ = static_cast<int>(std::min(measure.itemHeight, 0x7FFFU)) + toScale(kOwnerPadding);
}

int ComboBox::closedHeight() const {
    return fieldHeight_ + 2 * GetSystemMetrics(SM_CYEDGE);
}

// Whatever height is asked for beyond the closed one becomes the list's.
void ComboBox::onWmWindowPosChanging(WINDOWPOS& position) {
    if (position.flags & SWP_NOSIZE) {
        return;
    }
    if (position.cy > closedHeight()) {
        listHeight_ = position.cy - closedHeight() + (edit_ ? toScale(kEditPadding) : 0);
    }
    position.cy = closedHeight();
    sizeList();
}

void ComboBox::resizeToField() {
    RECT window;
    GetWindowRect(window_, &window);
    SetWindowPos(window_, nullptr, 0, 0, window.right - window.left, closedHeight(),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ComboBox::layout() {
    GetClientRect(window_, &item_);
    InflateRect(&item_, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
    button_ = item_;
    button_.left = std::max(item_.left, item_.right - GetSystemMetrics(SM_CXVSCROLL));
    item_.right = button_.left;
    sizeList();
    if (edit_) {
        InflateRect(&item_, -toScale(kEditPadding), -toScale(kEditPadding));
        SetWindowPos(edit_, nullptr, item_.left, item_.top, std::max(item_.right - item_.left, 0),
                     std::max(item_.bottom - item_.top, 0), SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

// The closed list has the height that it was given, which tells keys how far a page is.
void ComboBox::sizeList() {
    SetWindowPos(list_, nullptr, 0, 0, width(), listHeight_, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

int ComboBox::width() const {
    RECT window;
    GetWindowRect(window_, &window);
    return window.right - window.left;
}

void ComboBox::onWmSetFont(HFONT font, bool redraw) {
    font_ = font;
    fieldHeight_ = fontFieldHeight();
    const auto wParam = reinterpret_cast<WPARAM>(font);
    if (edit_) {
        SendMessageA(edit_, WM_SETFONT, wParam, redraw);
    }
    askList(WM_SETFONT, wParam, FALSE);
    resizeToField();
    layout();
    if (redraw) {
        InvalidateRect(window_, nullptr, FALSE);
    }
}

void ComboBox::onWmEnable(bool enabled) {
    if (edit_) {
        EnableWindow(edit_, enabled);
    }
    EnableWindow(list_, enabled);
    InvalidateRect(window_, nullptr, FALSE);
}

void ComboBox::onWmSetRedraw(WPARAM redraw) {
    DefWindowProcA(window_, WM_SETREDRAW, redraw, 0);
    if (edit_) {
        SendMessageA(edit_, WM_SETREDRAW, redraw, 0);
    }
    askList(WM_SETREDRAW, redraw);
}

LRESULT ComboBox::onWmGetDlgCode(const MSG* message) const {
    const bool closesList =
        message && message->message == WM_KEYDOWN && (message->wParam == VK_RETURN || message->wParam == VK_ESCAPE);
    return DLGC_WANTARROWS | DLGC_WANTCHARS | (open_ && closesList ? DLGC_WANTMESSAGE : 0);
}

LRESULT ComboBox::onTextMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (edit_) {
        return SendMessageA(edit_, message, wParam, lParam);
    }
    if (message == WM_GETTEXTLENGTH) {
        return static_cast<LRESULT>(currentText().size());
    }
    if (message != WM_GETTEXT) {
        return CB_ERR;
    }
    const auto buffer = reinterpret_cast<LPSTR>(lParam);
    if (wParam == 0 || !buffer) {
        return 0;
    }
    const std::string text = currentText();
    const std::size_t count = std::min<std::size_t>(wParam - 1, text.size());
    std::memcpy(buffer, text.data(), count);
    buffer[count] = '\0';
    return static_cast<LRESULT>(count);
}

LRESULT ComboBox::onCbSetItemHeight(int index, int height) {
    if (index != -1) {
        return has(CBS_OWNERDRAWFIXED) ? askList(LB_SETITEMHEIGHT, 0, height) : CB_ERR;
    }
    if (height < 0 || height > 0x7FFF) {
        return CB_ERR;
    }
    // As observed: the height given is that of the text between its lines of padding.
    fieldHeight_ = height + 2 * toScale(1);
    resizeToField();
    layout();
    return height;
}

LRESULT ComboBox::onCbGetComboBoxInfo(COMBOBOXINFO* info) const {
    if (!info || info->cbSize < sizeof *info) {
        return FALSE;
    }
    constexpr DWORD kPressedState = 0x8;
    info->rcItem = item_;
    info->rcButton = button_;
    info->stateButton = buttonDown_ ? kPressedState : 0;
    info->hwndCombo = window_;
    info->hwndItem = edit_;
    info->hwndList = list_;
    return TRUE;
}

}  // namespace platform
