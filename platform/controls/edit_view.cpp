// Layout and painting of a single-line edit.
#include "platform/controls/edit_view.h"

#include "platform/controls/combo_parts.h"
#include "platform/controls/control_base.h"
#include "platform/controls/control_colours.h"
#include "platform/graphics/scale.h"

#include <algorithm>

namespace platform {
namespace {

constexpr char kPasswordCharacter = '*';
constexpr int kGap = 1;             // Inside the edge or frame, in pixels at 96 dots an inch.
constexpr int kScrollFraction = 3;  // Scrolling leaves this part of the field before the caret.
constexpr int kOverhang = 2;        // Glyphs may reach this far beyond their edges.

// A context for measuring in the control's font.
class MeasuringDc {
public:
    MeasuringDc(HWND window, HFONT font) : window_(window), dc_(GetDC(window)), font_(dc_, font) {}
    ~MeasuringDc() { ReleaseDC(window_, dc_); }
    MeasuringDc(const MeasuringDc&) = delete;
    MeasuringDc& operator=(const MeasuringDc&) = delete;
    HDC get() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
    SelectedFont font_;
};

// The field of a combo box looks as its combo box does, whose style bit may have been set without a message.
bool isEnabled(HWND window) {
    const bool inCombo = (styleOf(window) & kComboEditStyle) != 0;
    return IsWindowEnabled(window) && (!inCombo || IsWindowEnabled(GetParent(window)));
}

}  // namespace

void EditView::setFont(HFONT font) {
    font_ = font;
    measured_ = false;
    TEXTMETRICA metrics;
    {
        const MeasuringDc dc(window_, font_);
        GetTextMetricsA(dc.get(), &metrics);
    }
    lineHeight_ = metrics.tmHeight;
    // The margin is half a character; a field of only a few characters has none.
    constexpr int kLeastCharacters = 4;
    RECT client;
    GetClientRect(window_, &client);
    const bool wide = client.right >= kLeastCharacters * metrics.tmAveCharWidth;
    fontMargin_ = font && wide ? metrics.tmAveCharWidth / 2 : 0;
    leftMargin_ = rightMargin_ = fontMargin_;
    layout();
}

void EditView::setMargins(UINT which, int left, int right) {
    if (which & EC_LEFTMARGIN) {
        leftMargin_ = left == EC_USEFONTINFO ? fontMargin_ : left;
    }
    if (which & EC_RIGHTMARGIN) {
        rightMargin_ = right == EC_USEFONTINFO ? fontMargin_ : right;
    }
    layout();
}

void EditView::layout() {
    GetClientRect(window_, &textRect_);
    const bool clientEdge = (GetWindowLongA(window_, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0;
    const int gap = (framed_ ? lineWidth() : 0) + (framed_ || clientEdge ? toScale(kGap) : 0);
    textRect_.left += gap + leftMargin_;
    textRect_.right = std::max(textRect_.right - gap - rightMargin_, textRect_.left);
    if (textRect_.bottom >= lineHeight_ + 2 * gap) {
        textRect_.top += gap;
    }
    textRect_.bottom = textRect_.top + lineHeight_;
}

std::string EditView::shown() const {
    const bool hidden = (styleOf(window_) & ES_PASSWORD) != 0;
    return hidden ? std::string(content_.text().size(), kPasswordCharacter) : content_.text();
}

void EditView::measure() {
    if (measured_) {
        return;
    }
    edges_.assign(content_.text().size(), 0);
    measured_ = true;
    if (edges_.empty()) {
        return;
    }
    const MeasuringDc dc(window_, font_);
    SIZE size;
    GetTextExtentExPointA(dc.get(), shown().c_str(), content_.length(), 0, nullptr, edges_.data(), &size);
}

bool EditView::fits(std::string_view text) const {
    const MeasuringDc dc(window_, font_);
    SIZE size{};
    GetTextExtentPoint32A(dc.get(), text.data(), static_cast<int>(text.size()), &size);
    return size.cx <= textRect_.right - textRect_.left;
}

// Where the text begins when nothing is scrolled: text that is wider than the field is not aligned.
int EditView::alignedLeft() const {
    const int spare = static_cast<int>(textRect_.right - textRect_.left) - (edges_.empty() ? 0 : edges_.back());
    const DWORD style = styleOf(window_);
    if (spare <= 0 || !(style & (ES_CENTER | ES_RIGHT))) {
        return textRect_.left;
    }
    return textRect_.left + (style & ES_CENTER ? spare / 2 : spare - 1);
}

int EditView::xOf(int position) {
    measure();
    const auto edge = [this](int index) { return index > 0 ? edges_[static_cast<std::size_t>(index - 1)] : 0; };
    const int count = static_cast<int>(edges_.size());
    firstVisible_ = std::min(firstVisible_, count);
    return alignedLeft() + edge(std::clamp(position, 0, count)) - edge(firstVisible_);
}

int EditView::positionAt(int x) {
    measure();
    int position = 0;
    while (position < content_.length() && x >= (xOf(position) + xOf(position + 1) + 1) / 2) {
        ++position;
    }
    return position;
}

bool EditView::scrollToCaret() {
    const int before = firstVisible_;
    const int caret = content_.caret();
    const int width = textRect_.right - textRect_.left;
    if (xOf(caret) < textRect_.left) {
        const int goal = textRect_.left + width / kScrollFraction;
        while (firstVisible_ > 0 && xOf(caret) < goal) {
            --firstVisible_;
        }
    } else if (xOf(caret) > textRect_.right) {
        const int goal = textRect_.right - width / kScrollFraction;
        while (firstVisible_ < caret && xOf(caret) > goal) {
            ++firstVisible_;
        }
    }
    return firstVisible_ != before;
}

void EditView::invalidate(int start, int end) {
    if (start == end) {
        return;
    }
    const RECT part = {xOf(start) - toScale(kOverhang), textRect_.top, xOf(end) + toScale(kOverhang), textRect_.bottom};
    InvalidateRect(window_, &part, FALSE);
}

void EditView::invalidateFrom(int start) {
    // A change moves all of an aligned text.
    const bool aligned = (styleOf(window_) & (ES_CENTER | ES_RIGHT)) != 0;
    RECT part = textRect_;
    part.left = aligned ? part.left : std::max(part.left, static_cast<LONG>(xOf(start) - toScale(kOverhang)));
    InvalidateRect(window_, &part, FALSE);
}

// Draws the part of the text that falls into `place`. All of it is drawn there, because glyphs reach over their edges.
void EditView::paintRun(HDC dc, const std::string& text, const RECT& place) const {
    if (place.left < place.right) {
        const int scrolled = firstVisible_ > 0 ? edges_[static_cast<std::size_t>(firstVisible_ - 1)] : 0;
        ExtTextOutA(dc, alignedLeft() - scrolled, textRect_.top, ETO_OPAQUE | ETO_CLIPPED, &place, text.data(),
                    static_cast<UINT>(text.size()), nullptr);
    }
}

void EditView::paintFrame(HDC dc) const {
    RECT client;
    GetClientRect(window_, &client);
    frameByLine(dc, client, GetSysColorBrush(COLOR_WINDOWFRAME));
}

void EditView::paint(HDC dc, bool selection) {
    measure();
    RECT client;
    GetClientRect(window_, &client);
    const SelectedFont font(dc, font_);
    const bool enabled = isEnabled(window_);
    const bool editable = enabled && !(styleOf(window_) & ES_READONLY);
    const UINT question = editable ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC;
    const HBRUSH brush = askColours(GetParent(window_), window_, dc, question);
    if (!enabled) {
        SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    }
    const std::string text = shown();
    const int first = selection ? content_.selectionStart() : 0;
    const int last = selection ? content_.selectionEnd() : 0;
    const auto inField = [this](int x) { return std::clamp<LONG>(x, textRect_.left, textRect_.right); };
    const RECT before = {textRect_.left, textRect_.top, inField(xOf(first)), textRect_.bottom};
    const RECT marked = {before.right, textRect_.top, inField(xOf(last)), textRect_.bottom};
    const RECT after = {marked.right, textRect_.top, inField(xOf(content_.length())), textRect_.bottom};

    SetBkMode(dc, OPAQUE);
    paintRun(dc, text, before);
    paintRun(dc, text, after);
    SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    const COLORREF plain = SetBkColor(dc, GetSysColor(COLOR_HIGHLIGHT));
    paintRun(dc, text, marked);
    SetBkColor(dc, plain);

    const RECT around[] = {
        {client.left, client.top, client.right, textRect_.top},
        {client.left, textRect_.bottom, client.right, client.bottom},
        {client.left, textRect_.top, textRect_.left, textRect_.bottom},
        {after.right, textRect_.top, client.right, textRect_.bottom},
    };
    for (const RECT& part : around) {
        FillRect(dc, &part, brush);
    }
    if (framed_) {
        paintFrame(dc);
    }
}

}  // namespace platform
