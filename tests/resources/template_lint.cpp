// The checks. Places are compared in dialog units, in which a template gives them; captions are measured in pixels.
#include "tests/resources/template_lint.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <optional>

#include "automation/finder.h"

namespace {

// All in pixels at 96 dots an inch, of the system that needs more.
constexpr int kMark = 13 + 4;      // A check box or radio button with the gap before its caption.
constexpr int kPushEdge = 4;       // From the edge of a push button to its focus rectangle.
constexpr int kFrameCaptionX = 8;  // Before and after the caption of a frame.

constexpr int kLineDlu = 8;  // Height of a line of text.

enum class Kind { Label, Decoration, Frame, Push, Check, Radio, Other };

struct Control {
    HWND window;
    Kind kind;
    DWORD style;
    WORD id;
    RECT place;  // In dialog units.
    std::string caption;

    bool isVisible() const { return (style & WS_VISIBLE) != 0; }
    bool startsGroup() const { return (style & WS_GROUP) != 0; }
    bool isPassive() const { return kind == Kind::Label || kind == Kind::Decoration || kind == Kind::Frame; }
    bool takesInput() const { return !isPassive() && isVisible() && (style & WS_DISABLED) == 0; }
};

Kind kindOf(HWND window, DWORD style) {
    const std::string windowClass = automation::ClassOf(window);
    if (windowClass == "Static") {
        switch (style & SS_TYPEMASK) {
            case SS_LEFT:
            case SS_CENTER:
            case SS_RIGHT:
            case SS_SIMPLE:
            case SS_LEFTNOWORDWRAP:
                return Kind::Label;
            case SS_BLACKFRAME:
            case SS_WHITEFRAME:
                return Kind::Frame;
            default:
                return Kind::Decoration;
        }
    }
    if (windowClass != "Button") {
        return Kind::Other;
    }
    switch (style & BS_TYPEMASK) {
        case BS_PUSHBUTTON:
        case BS_DEFPUSHBUTTON:
            return Kind::Push;
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            return Kind::Radio;
        case BS_GROUPBOX:
            return Kind::Frame;
        default:
            return automation::HoldsCheck(window) ? Kind::Check : Kind::Other;
    }
}

bool contains(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

// Whether `second` is read before `first`: it begins on the same line to the left, or stands above it and not in a
// column of its own to the right.
bool isReadBefore(const RECT& second, const RECT& first) {
    const bool sameLine = std::abs(first.top - second.top) < kLineDlu;
    return sameLine ? second.right <= first.left : second.bottom <= first.top && second.left < first.right;
}

INT_PTR CALLBACK doNothing(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

class DialogDc {
public:
    explicit DialogDc(HWND dialog)
        : dialog_(dialog),
          dc_(GetDC(dialog)),
          old_(SelectObject(dc_, reinterpret_cast<HGDIOBJ>(SendMessageA(dialog, WM_GETFONT, 0, 0)))) {}
    ~DialogDc() {
        SelectObject(dc_, old_);
        ReleaseDC(dialog_, dc_);
    }
    DialogDc(const DialogDc&) = delete;
    DialogDc& operator=(const DialogDc&) = delete;

    // The size of four by eight dialog units.
    SIZE baseUnits() const {
        RECT units = {0, 0, 4, 8};
        MapDialogRect(dialog_, &units);
        return {units.right, units.bottom};
    }
    int scaled(int pixels) const { return pixels * GetDeviceCaps(dc_, LOGPIXELSX) / 96; }
    SIZE measure(const std::string& text, int width, UINT format) const {
        RECT rect = {0, 0, width, 0};
        DrawTextA(dc_, text.c_str(), -1, &rect, format | DT_CALCRECT);
        return {rect.right, rect.bottom};
    }

private:
    HWND dialog_;
    HDC dc_;
    HGDIOBJ old_;
};

class TemplateLint {
public:
    TemplateLint(const std::string& name, HWND dialog)
        : name_(name), dialog_(dialog), dc_(dialog), baseWidth_(dc_.baseUnits().cx) {
        const SIZE base = dc_.baseUnits();
        const auto toUnits = [&](RECT pixels) {
            const auto scaled = [](LONG length, int units, LONG pixelsOfThem) {
                return static_cast<LONG>(
                    std::lround(static_cast<double>(length) * units / static_cast<double>(pixelsOfThem)));
            };
            const LONG x = scaled(pixels.left, 4, base.cx);
            const LONG y = scaled(pixels.top, 8, base.cy);
            return RECT{x, y, x + scaled(pixels.right - pixels.left, 4, base.cx),
                        y + scaled(pixels.bottom - pixels.top, 8, base.cy)};
        };
        RECT client;
        GetClientRect(dialog, &client);
        page_ = toUnits(client);
        for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            RECT place;
            GetWindowRect(child, &place);
            MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
            const auto style = static_cast<DWORD>(GetWindowLongA(child, GWL_STYLE));
            controls_.push_back({child, kindOf(child, style), style, static_cast<WORD>(GetDlgCtrlID(child)),
                                 toUnits(place), automation::TextOf(child)});
        }
    }

    std::vector<std::string> run(ControlOrder order) {
        checkNumbers();
        checkPlaces();
        checkCaptions();
        checkGroups();
        if (order == ControlOrder::Free) {
            checkOrder();
        }
        checkLabels();
        checkKeys();
        return complaints_;
    }

private:
    LONG unitsOf(LONG pixels) const { return pixels * 4 / baseWidth_; }

    static std::string titleOf(const Control& control) {
        const WORD id = control.id;
        return (id == kNoNumber ? "unnumbered" : std::to_string(id)) + " \"" + control.caption + "\"";
    }
    void complain(const Control& control, const std::string& what) {
        const std::string complaint = name_ + ": " + titleOf(control) + " " + what;
        if (std::find(complaints_.begin(), complaints_.end(), complaint) == complaints_.end()) {
            complaints_.push_back(complaint);
        }
    }

    void checkNumbers() {
        for (std::size_t i = 0; i < controls_.size(); ++i) {
            const auto earlier = controls_.begin() + static_cast<std::ptrdiff_t>(i);
            const bool repeated = std::any_of(controls_.begin(), earlier,
                                              [&](const Control& other) { return other.id == controls_[i].id; });
            if (repeated && controls_[i].id != kNoNumber) {
                complain(controls_[i], "has the number of another control");
            }
        }
    }

    void checkPlaces() {
        for (std::size_t i = 0; i < controls_.size(); ++i) {
            const Control& control = controls_[i];
            if (control.isVisible() && !contains(page_, control.place)) {
                complain(control, "lies outside of the page");
            }
            for (std::size_t j = 0; j < i; ++j) {
                RECT common;
                // A column in common is the frames' edges.
                if (control.isVisible() && controls_[j].isVisible() &&
                    IntersectRect(&common, &control.place, &controls_[j].place) && common.right - common.left > 1) {
                    checkCommonPlace(control, controls_[j]);
                }
            }
        }
    }

    void checkCommonPlace(const Control& a, const Control& b) {
        const bool inside = b.kind == Kind::Frame && contains(b.place, a.place);
        if (!inside && !(a.kind == Kind::Frame && contains(a.place, b.place))) {
            complain(a, "lies over " + titleOf(b));
            return;
        }
        const Control& frame = inside ? b : a;
        const Control& content = inside ? a : b;
        const LONG captionEnd = frame.place.left + unitsOf(dc_.measure(frame.caption, 0, DT_SINGLELINE).cx) + kLineDlu;
        if (content.place.top < frame.place.top + kLineDlu && content.place.left < captionEnd &&
            !frame.caption.empty()) {
            complain(content, "covers the caption of " + titleOf(frame));
        }
    }

    void checkCaptions() {
        for (const Control& control : controls_) {
            RECT client;
            GetClientRect(control.window, &client);
            if (!fits(control, client.right, client.bottom)) {
                complain(control, "is cut off");
            }
        }
    }

    bool fits(const Control& control, int width, int height) const {
        int margins = 0;
        UINT format = DT_SINGLELINE;
        switch (control.kind) {
            case Kind::Label:
                format = (control.style & SS_TYPEMASK) <= SS_RIGHT ? DT_WORDBREAK : DT_SINGLELINE;
                format |= control.style & SS_NOPREFIX ? DT_NOPREFIX : 0U;
                break;
            case Kind::Check:
            case Kind::Radio:
                margins = dc_.scaled(kMark);
                break;
            case Kind::Push:
                margins = dc_.scaled(2 * kPushEdge);
                break;
            case Kind::Frame:
                margins = dc_.scaled(2 * kFrameCaptionX);
                break;
            default:
                return true;
        }
        const SIZE needed = dc_.measure(control.caption, width - margins, format);
        return control.caption.empty() || (needed.cx + margins <= width && needed.cy <= height);
    }

    // A row of radio buttons is a group of its own, so that choosing in it leaves all other buttons alone.
    void checkGroups() {
        for (std::size_t i = 0; i < controls_.size(); ++i) {
            const Control& before = controls_[(i + controls_.size() - 1) % controls_.size()];
            if (controls_[i].startsGroup() || before.kind == controls_[i].kind) {
                continue;
            }
            if (controls_[i].kind == Kind::Radio) {
                complain(controls_[i], "does not begin its group");
            } else if (before.kind == Kind::Radio) {
                complain(controls_[i], "goes on with the group of " + titleOf(before));
            }
        }
    }

    // Number of the smallest frame around a control; its own number when there is none.
    std::size_t frameOf(std::size_t number) const {
        const auto area = [](const RECT& rect) { return (rect.right - rect.left) * (rect.bottom - rect.top); };
        std::size_t best = number;
        for (std::size_t i = 0; i < controls_.size(); ++i) {
            const Control& frame = controls_[i];
            const bool around = i != number && frame.isVisible() && frame.kind == Kind::Frame &&
                                contains(frame.place, controls_[number].place);
            if (around && (best == number || area(frame.place) < area(controls_[best].place))) {
                best = i;
            }
        }
        return best;
    }

    // Controls of one frame follow each other as they are read, and so do frames.
    void checkOrder() {
        std::vector<std::pair<std::optional<std::size_t>, const Control*>> last;
        for (std::size_t i = 0; i < controls_.size(); ++i) {
            const Control& control = controls_[i];
            if (!control.takesInput() && !(control.kind == Kind::Frame && control.isVisible())) {
                continue;
            }
            const std::size_t around = frameOf(i);
            const auto frame = around == i ? std::nullopt : std::optional(around);
            const auto found =
                std::find_if(last.begin(), last.end(), [&](const auto& entry) { return entry.first == frame; });
            if (found == last.end()) {
                last.emplace_back(frame, &control);
                continue;
            }
            if (isReadBefore(control.place, found->second->place)) {
                complain(control, "is read before " + titleOf(*found->second) + ", which Tab reaches first");
            }
            found->second = &control;
        }
    }

    // Screen readers take the name of a control without a caption from the text that stands before it in the template,
    // or from the frame around it.
    void checkLabels() {
        const Control* text = nullptr;
        for (std::size_t i = 0; i < controls_.size(); ++i) {
            const Control& control = controls_[i];
            text = control.kind == Kind::Label && !control.caption.empty() ? &control : text;
            const std::size_t frame = frameOf(i);
            const bool isFramed = frame < i && !controls_[frame].caption.empty();
            const bool isNamed = isFramed || (text != nullptr && isReadBefore(text->place, control.place) &&
                                              control.place.top - text->place.bottom < kLineDlu);
            if (control.kind == Kind::Other && isFilledByUser(control.window) && !isNamed) {
                complain(control, kUnnamed);
            }
        }
    }

    static bool isFilledByUser(HWND window) {
        const std::string windowClass = automation::ClassOf(window);
        constexpr const char* kClasses[] = {"Edit", "ComboBox", "ListBox", WC_LISTVIEWA, TRACKBAR_CLASSA};
        return std::find(std::begin(kClasses), std::end(kClasses), windowClass) != std::end(kClasses);
    }

    std::optional<std::size_t> focused() const {
        for (HWND focus = GetFocus(); focus; focus = GetParent(focus)) {
            for (std::size_t i = 0; i < controls_.size(); ++i) {
                if (controls_[i].window == focus) {
                    return i;
                }
            }
        }
        return std::nullopt;
    }

    std::optional<std::size_t> press(std::size_t from, UINT key) const {
        SetFocus(controls_[from].window);
        PostMessageA(GetFocus(), WM_KEYDOWN, key, 1);
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (!IsDialogMessageA(dialog_, &message)) {
                TranslateMessage(&message);
                DispatchMessageA(&message);
            }
        }
        return focused();
    }

    // Goes wherever Tab and the arrow keys lead.
    void checkKeys() {
        checkFirstButtons();
        std::vector<bool> reached(controls_.size());
        std::vector<std::size_t> waiting;
        const auto reach = [&](std::optional<std::size_t> number) {
            if (!number || reached[*number]) {
                return;
            }
            reached[*number] = true;
            if (controls_[*number].isPassive()) {
                complain(controls_[*number], "gets the focus");
            } else {
                waiting.push_back(*number);
            }
        };
        SetFocus(GetNextDlgTabItem(dialog_, nullptr, FALSE));
        reach(focused());
        while (!waiting.empty()) {
            const std::size_t from = waiting.back();
            waiting.pop_back();
            reach(press(from, VK_TAB));
            if (SendMessageA(controls_[from].window, WM_GETDLGCODE, 0, 0) & DLGC_WANTARROWS) {
                continue;
            }
            for (const UINT key : {VK_UP, VK_DOWN}) {
                const auto next = press(from, key);
                reach(next);
                if (next && !controls_[*next].isPassive() && controls_[*next].kind != controls_[from].kind) {
                    complain(controls_[*next], "is where the arrow keys go from " + titleOf(controls_[from]));
                }
            }
        }
        for (std::size_t i = 0; i < controls_.size(); ++i) {
            if (!reached[i] && controls_[i].takesInput()) {
                complain(controls_[i], "is out of reach of the keyboard");
            }
        }
    }

    // A row of radio buttons is a tab stop only when one of them is on, as a page has it.
    void checkFirstButtons() const {
        for (const Control& control : controls_) {
            if (control.kind == Kind::Radio && control.startsGroup()) {
                SendMessageA(control.window, BM_SETCHECK, BST_CHECKED, 0);
            }
        }
    }

    static constexpr WORD kNoNumber = 0xFFFF;  // IDC_STATIC.

    std::string name_;
    HWND dialog_;
    DialogDc dc_;
    LONG baseWidth_;  // Pixels of four units.
    RECT page_{};
    std::vector<Control> controls_;  // In the order of the template.
    std::vector<std::string> complaints_;
};

}  // namespace

std::vector<std::string> lintTemplate(const std::string& name, std::vector<std::uint16_t> dialogTemplate, HWND popup,
                                      ControlOrder order) {
    constexpr std::size_t kExtendedStyleAt = 6;
    const bool isExtended = dialogTemplate[0] == 1 && dialogTemplate[1] == 0xFFFF;
    std::uint16_t* const style = &dialogTemplate[isExtended ? kExtendedStyleAt : 0];
    constexpr DWORD kWindowOnly = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_DISABLED;
    const DWORD childStyle = ((style[0] | static_cast<DWORD>(style[1]) << 16) & ~kWindowOnly) | WS_CHILD | WS_VISIBLE;
    style[0] = LOWORD(childStyle);
    style[1] = HIWORD(childStyle);
    HWND dialog = CreateDialogIndirectParamA(
        GetModuleHandleA(nullptr), reinterpret_cast<LPCDLGTEMPLATEA>(dialogTemplate.data()), popup, doNothing, 0);
    if (!dialog) {
        return {name + ": cannot be created"};
    }
    std::vector<std::string> complaints = TemplateLint(name, dialog).run(order);
    DestroyWindow(dialog);
    return complaints;
}
