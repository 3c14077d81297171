// The list view of the scenes, and its notifications in words.
#include "tests/conformance/list_scene.h"

#include <array>
#include <cstdio>
#include <iterator>

namespace {

constexpr DWORD kStyle = LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_EDITLABELS | WS_BORDER | WS_TABSTOP;
constexpr const char* kTexts[][2] = {{"Pump", "  3"}, {"alpha", "  1"}, {"c12", " 12"},
                                     {"c2", "  2"},   {"Beta", "  5"},  {"Zon", "  4"}};

template <typename... Values>
std::string words(const char* format, Values... values) {
    std::array<char, 200> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

std::string describeChange(const NMLISTVIEW& change) {
    return words(" item %d.%d old %#x new %#x changed %#x param %d", change.iItem, change.iSubItem, change.uOldState,
                 change.uNewState, change.uChanged, static_cast<int>(change.lParam));
}

std::string describeClick(const NMITEMACTIVATE& click, int right) {
    return words(" item %d.%d keys %u at %s", click.iItem, click.iSubItem, click.uKeyFlags,
                 click.ptAction.x > right ? "far" : "near");
}

std::string describeEdit(const NMLVDISPINFOA& edit, HWND control) {
    char shown[40] = "";
    GetWindowTextA(control, shown, sizeof shown);
    return words(" item %d.%d text %s shown \"%s\"", edit.item.iItem, edit.item.iSubItem,
                 edit.item.pszText ? edit.item.pszText : "(none)", shown);
}

std::string describeHeader(const NMHEADERA& header) {
    const HDITEMA none{};
    const HDITEMA& item = header.pitem ? *header.pitem : none;
    return words(" column %d button %d mask %#x order %d width %d", header.iItem, header.iButton, item.mask,
                 (item.mask & HDI_ORDER) != 0 ? item.iOrder : 0, (item.mask & HDI_WIDTH) != 0 ? item.cxy : 0);
}

}  // namespace

ListScene::ListScene(Trace& trace, int rows) : trace_(trace), parent_(trace) {
    parent_.setQuiet(true);
    list_ = parent_.add(WC_LISTVIEWA, "", kStyle, 20, 10, 10, 220, 200);
    other_ = parent_.add("Edit", "", WS_TABSTOP, 21, 250, 10, 100, 20);
    ask(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_CHECKBOXES | LVS_EX_HEADERDRAGDROP);
    insertColumn(0, "Kommentarer", kFirstWidth);
    insertColumn(1, "F\xE4rg", kSecondWidth);
    for (int i = 0; i < rows; ++i) {
        const auto& texts = kTexts[static_cast<std::size_t>(i) % std::size(kTexts)];
        insertRow(i, texts[0], texts[1], i);
    }
    SetFocus(other_);
    UpdateWindow(list_);
    drain();
    hidden_ = {static_cast<UINT>(NM_CUSTOMDRAW)};
    parent_.setHook(
        [this](UINT message, WPARAM, LPARAM lParam, LRESULT& result) { return take(message, lParam, result); });
}

ListScene::~ListScene() {
    parent_.setHook(nullptr);
}

bool ListScene::take(UINT message, LPARAM lParam, LRESULT& result) {
    if (message != WM_NOTIFY) {
        return false;
    }
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (!hidden_.contains(header.code)) {
        trace_.line("%s%s%s", header.hwndFrom == list_ ? "" : "header: ", notificationName(header.code),
                    describe(header).c_str());
    }
    if (hook_) {
        hook_(header);
    }
    result = answerResult_;
    return answeredCode_ == header.code;
}

std::string ListScene::describe(const NMHDR& header) const {
    const auto* const pointer = reinterpret_cast<const void*>(&header);
    switch (header.code) {
        case static_cast<UINT>(LVN_ITEMCHANGING):
        case static_cast<UINT>(LVN_ITEMCHANGED):
        case static_cast<UINT>(LVN_INSERTITEM):
        case static_cast<UINT>(LVN_DELETEITEM):
        case static_cast<UINT>(LVN_COLUMNCLICK):
            return describeChange(*static_cast<const NMLISTVIEW*>(pointer));
        case static_cast<UINT>(NM_CLICK):
        case static_cast<UINT>(NM_DBLCLK):
        case static_cast<UINT>(NM_RCLICK):
            return header.hwndFrom == list_
                       ? describeClick(*static_cast<const NMITEMACTIVATE*>(pointer), kFirstWidth + kSecondWidth)
                       : "";
        case static_cast<UINT>(LVN_KEYDOWN):
            return words(" key %#x", static_cast<const NMLVKEYDOWN*>(pointer)->wVKey);
        case static_cast<UINT>(LVN_BEGINLABELEDITA):
        case static_cast<UINT>(LVN_ENDLABELEDITA):
            return describeEdit(*static_cast<const NMLVDISPINFOA*>(pointer),
                                reinterpret_cast<HWND>(ask(LVM_GETEDITCONTROL)));
        default:
            return header.code <= HDN_FIRST && header.code > HDN_FIRST - 100
                       ? describeHeader(*static_cast<const NMHEADERA*>(pointer))
                       : "";
    }
}

int ListScene::insertColumn(int index, const char* text, int width) {
    LVCOLUMNA column{};
    column.mask = LVCF_FMT | LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    column.fmt = LVCFMT_LEFT;
    column.pszText = const_cast<LPSTR>(text);
    column.cx = width;
    column.iSubItem = index;
    return number(ask(LVM_INSERTCOLUMNA, wordOf(index), reinterpret_cast<LPARAM>(&column)));
}

int ListScene::insertRow(int index, const char* text, const char* second, LPARAM param) {
    LVITEMA item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = index;
    item.pszText = const_cast<LPSTR>(text);
    item.lParam = param;
    const int inserted = number(ask(LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item)));
    setText(inserted, 1, second);
    return inserted;
}

BOOL ListScene::setText(int index, int column, const char* text) {
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = const_cast<LPSTR>(text);
    return static_cast<BOOL>(ask(LVM_SETITEMTEXTA, wordOf(index), reinterpret_cast<LPARAM>(&item)));
}

BOOL ListScene::setState(int index, UINT state, UINT mask) {
    LVITEMA item{};
    item.state = state;
    item.stateMask = mask;
    return static_cast<BOOL>(ask(LVM_SETITEMSTATE, wordOf(index), reinterpret_cast<LPARAM>(&item)));
}

std::string ListScene::textOf(int index, int column) const {
    std::array<char, 64> text{};
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    ask(LVM_GETITEMTEXTA, wordOf(index), reinterpret_cast<LPARAM>(&item));
    return text.data();
}

RECT ListScene::rectOf(int index, int part) const {
    RECT rect = {part, 0, 0, 0};
    ask(LVM_GETITEMRECT, wordOf(index), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

RECT ListScene::cellOf(int index, int column, int part) const {
    RECT rect = {part, column, 0, 0};
    ask(LVM_GETSUBITEMRECT, wordOf(index), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

ListScene& ListScene::doubleClick(POINT point) {
    click(point);
    PostMessageA(list_, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    PostMessageA(list_, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    drain();
    return *this;
}

void ListScene::state(const char* after) {
    drain();
    std::string text =
        words("%s: selected %d focused %d top %d", after, number(ask(LVM_GETNEXTITEM, wordOf(-1), LVNI_SELECTED)),
              number(ask(LVM_GETNEXTITEM, wordOf(-1), LVNI_FOCUSED)), number(ask(LVM_GETTOPINDEX)));
    for (int i = 0; i < count(); ++i) {
        if (const UINT of = stateOf(i); (of & ~LVIS_STATEIMAGEMASK) != 0 || of == INDEXTOSTATEIMAGEMASK(2)) {
            text += words(", %d has %#x", i, of);
        }
    }
    const bool editing = ask(LVM_GETEDITCONTROL) != 0;
    HWND focus = GetFocus();
    trace_.line("%s%s%s", text.c_str(), editing ? " editing" : "",
                focus == list_    ? " focus"
                : focus == other_ ? ""
                                  : " focus elsewhere");
}

void ListScene::rows() const {
    for (int i = 0; i < count(); ++i) {
        LVITEMA item{};
        item.mask = LVIF_PARAM | LVIF_STATE;
        item.stateMask = 0xFFFF;
        item.iItem = i;
        ask(LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
        trace_.line("  row %d: \"%s\" \"%s\" param %d state %#x", i, textOf(i).c_str(), textOf(i, 1).c_str(),
                    static_cast<int>(item.lParam), item.state);
    }
}
