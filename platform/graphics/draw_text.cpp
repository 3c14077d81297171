// DrawTextA: lines, word breaks, mnemonics, tabs and ellipsis within a rectangle. Words longer than a line are
// not broken, and there is no ellipsis for paths or words.
#include "platform/graphics/text_out.h"

#include <windows.h>

#include <cstring>
#include <string>

using namespace platform;

namespace {

constexpr int kTabWidthInCharacters = 8;

struct Line {
    std::string text;     // As shown: without the marks of mnemonics.
    int underlined = -1;  // Index of the underlined character, -1 for none.
};

// Takes lines off the front of a text, one by one.
class LineReader {
public:
    LineReader(SizedFont& font, std::string_view text, UINT format, int width)
        : font_(font), rest_(text), format_(format), width_(width) {}

    bool atEnd() const { return rest_.empty(); }
    Line next();

private:
    std::string_view cutAtLineEnd();
    std::size_t breakPosition(std::string_view text) const;
    Line shown(std::string_view text) const;
    void addEllipsis(Line& line) const;

    SizedFont& font_;
    std::string_view rest_;
    UINT format_;
    int width_;
};

bool isLineEnd(char character) {
    return character == '\r' || character == '\n';
}

int shownWidth(SizedFont& font, std::string_view text, UINT format) {
    if ((format & DT_EXPANDTABS) == 0) {
        return font.width(text);
    }
    const int tab = kTabWidthInCharacters * font.averageWidth();
    int width = 0;
    for (const char character : text) {
        width =
            character == '\t' ? (width / tab + 1) * tab : limited(std::int64_t{width} + font.glyph(character).advance);
    }
    return width;
}

// The text up to the line's end; what follows that end remains.
std::string_view LineReader::cutAtLineEnd() {
    const std::string_view all = rest_;
    const std::size_t end = (format_ & DT_SINGLELINE) != 0 ? std::string_view::npos : all.find_first_of("\r\n");
    if (end == std::string_view::npos) {
        rest_ = {};
        return all;
    }
    // The two characters may stand in either order; two of the same kind are two ends.
    const bool pair = end + 1 < all.size() && isLineEnd(all[end + 1]) && all[end + 1] != all[end];
    rest_ = all.substr(end + (pair ? 2 : 1));
    return all.substr(0, end);
}

Line LineReader::shown(std::string_view text) const {
    Line line;
    if ((format_ & DT_NOPREFIX) != 0 || text.find('&') == std::string_view::npos) {
        line.text = text;
        return line;
    }
    line.text.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool mark = text[i] == '&' && i + 1 < text.size();
        if (mark) {
            ++i;
            line.underlined = text[i] == '&' ? line.underlined : static_cast<int>(line.text.size());
        }
        line.text += text[i];
    }
    return line;
}

// How much of the text, which is one line without regard to the width, fits: up to the end of a word. At least one
// word.
std::size_t LineReader::breakPosition(std::string_view text) const {
    std::size_t fitting = 0;
    for (std::size_t end = 1; end <= text.size(); ++end) {
        const bool wordEnds = end == text.size() || text[end] == ' ' || text[end - 1] == '-';
        if (!wordEnds || text[end - 1] == ' ') {
            continue;
        }
        if (fitting > 0 && shownWidth(font_, shown(text.substr(0, end)).text, format_) > width_) {
            return fitting;
        }
        fitting = end;
    }
    return text.size();
}

void LineReader::addEllipsis(Line& line) const {
    static constexpr std::string_view kEllipsis = "...";
    if (shownWidth(font_, line.text, format_) <= width_) {
        return;
    }
    const int room = width_ - font_.width(kEllipsis);
    while (!line.text.empty() && shownWidth(font_, line.text, format_) > room) {
        line.text.pop_back();
    }
    if (line.underlined >= static_cast<int>(line.text.size())) {
        line.underlined = -1;
    }
    line.text += kEllipsis;
}

Line LineReader::next() {
    std::string_view before = rest_;
    std::string_view text = cutAtLineEnd();
    if ((format_ & DT_WORDBREAK) != 0 && (format_ & DT_SINGLELINE) == 0) {
        const std::size_t end = breakPosition(text);
        const std::size_t next = std::min(text.find_first_not_of(' ', end), text.size());
        if (next < text.size()) {
            rest_ = before.substr(next);  // The spaces at a break are not shown.
        }
        text = text.substr(0, end);
    }
    Line line = shown(text);
    if ((format_ & DT_END_ELLIPSIS) != 0) {
        addEllipsis(line);
    }
    return line;
}

void drawExpanded(DeviceContext& dc, POINT at, std::string_view text, UINT format, const RECT& limit) {
    SizedFont& font = sizedFont(*dc.state().font);
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t tab = (format & DT_EXPANDTABS) != 0 ? text.find('\t', start) : std::string_view::npos;
        const std::size_t end = std::min(tab, text.size());
        const int x = limited(std::int64_t{at.x} + shownWidth(font, text.substr(0, start), format));
        drawText(dc, {x, at.y}, text.substr(start, end - start), nullptr, limit);
        start = end + 1;
    }
}

void underline(DeviceContext& dc, POINT at, const Line& line, UINT format, const RECT& limit) {
    SizedFont& font = sizedFont(*dc.state().font);
    const auto index = static_cast<std::size_t>(line.underlined);
    const int left =
        limited(std::int64_t{at.x} + shownWidth(font, std::string_view(line.text).substr(0, index), format));
    // One pixel short of the character's width, as the system draws it.
    const int right = left + font.glyph(line.text[index]).advance - 1;
    const int y = at.y + font.ascent() + 1;
    fillArea(dc, overlapOf({left, y, right, y + 1}, limit), pixelOf(dc.state().textColour));
}

int alignedLeft(const RECT& rect, int width, UINT format) {
    if ((format & DT_CENTER) != 0) {
        return limited((std::int64_t{rect.left} + rect.right - width) / 2);
    }
    return (format & DT_RIGHT) != 0 ? limited(std::int64_t{rect.right} - width) : rect.left;
}

int alignedTop(const RECT& rect, int height, UINT format) {
    if ((format & DT_SINGLELINE) == 0) {
        return rect.top;
    }
    if ((format & DT_VCENTER) != 0) {
        // Halves are cut off one by one, as the system does.
        return rect.top + (rect.bottom - rect.top) / 2 - height / 2;
    }
    return (format & DT_BOTTOM) != 0 ? rect.bottom - height : rect.top;
}

void drawLine(DeviceContext& dc, int x, int y, const Line& line, UINT format, const RECT& limit) {
    const POINT at = toSurface(dc, x, y);
    drawExpanded(dc, at, line.text, format, limit);
    if (line.underlined >= 0 && (format & DT_HIDEPREFIX) == 0) {
        underline(dc, at, line, format, limit);
    }
}

RECT limitedRect(const RECT& rect) {
    return {limited(rect.left), limited(rect.top), limited(rect.right), limited(rect.bottom)};
}

}  // namespace

int DrawTextA(HDC handle, LPCSTR text, int length, LPRECT rect, UINT format) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr || text == nullptr || rect == nullptr || length < -1) {
        return 0;
    }
    const std::string_view all(text, length < 0 ? std::strlen(text) : static_cast<std::size_t>(length));
    SizedFont& font = sizedFont(*dc->state().font);
    const bool measuring = (format & DT_CALCRECT) != 0;
    const bool clipping = (format & DT_NOCLIP) == 0;
    const RECT bounds = limitedRect(*rect);
    if (all.empty()) {
        if (measuring) {
            rect->right = rect->left;
            rect->bottom = rect->top + ((format & DT_SINGLELINE) != 0 ? font.height() : 0);
        }
        return font.height();
    }
    const RECT limit = clipping ? toSurface(*dc, bounds.left, bounds.top, bounds.right, bounds.bottom) : kNoLimit;
    LineReader lines(font, all, format, bounds.right - bounds.left);
    int y = alignedTop(bounds, font.height(), format);
    int widest = 0;
    while (!lines.atEnd() && (measuring || !clipping || y <= bounds.bottom)) {
        const Line line = lines.next();
        const int width = shownWidth(font, line.text, format);
        widest = std::max(widest, width);
        if (!measuring) {
            drawLine(*dc, alignedLeft(bounds, width, format), y, line, format, limit);
        }
        y = limited(std::int64_t{y} + font.height());
    }
    if (measuring) {
        rect->right = limited(std::int64_t{bounds.left} + widest);
        rect->bottom = y;
    }
    return y - bounds.top;
}
