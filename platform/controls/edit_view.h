// Where the characters of a single-line edit stand in its client area, and how they are painted. Positions are bytes of
// the text, coordinates pixels of the client area.
#pragma once

#include "platform/controls/edit_text.h"

#include <windows.h>

#include <vector>

namespace platform {

class EditView {
public:
    EditView(HWND window, const EditText& content) : window_(window), content_(content) {}

    HFONT font() const { return font_; }
    // Takes the margins from the font too, as long as they fit into the field.
    void setFont(HFONT font);
    // `which` names the margins by EC_LEFTMARGIN and EC_RIGHTMARGIN; EC_USEFONTINFO as a width is the font's own
    // margin.
    void setMargins(UINT which, int left, int right);
    // The frame that the edit draws itself because it has a border but no client edge.
    void setFramed(bool framed) { framed_ = framed; }

    // The text changed: widths are measured again when they are needed.
    void textChanged() { measured_ = false; }
    void layout();

    const RECT& textRect() const { return textRect_; }
    int lineHeight() const { return lineHeight_; }
    // The left edge of a character; the caret's place.
    int xOf(int position);
    // The position whose character edge is nearest.
    int positionAt(int x);
    // Scrolls so that the caret can be seen, by a third of the field at a time. True when the text moved.
    bool scrollToCaret();
    // Whether a text of this content would be cut off.
    bool fits(std::string_view text) const;

    void invalidate(int start, int end);
    void invalidateFrom(int start);
    // Paints the whole field, text upon its own background. `selection` false hides the selection.
    void paint(HDC dc, bool selection);

private:
    void measure();
    std::string shown() const;
    int alignedLeft() const;
    void paintRun(HDC dc, const std::string& text, const RECT& place) const;
    void paintFrame(HDC dc) const;

    HWND window_;
    const EditText& content_;
    HFONT font_ = nullptr;
    RECT textRect_{};
    int lineHeight_ = 0;
    int fontMargin_ = 0;
    int leftMargin_ = 0;
    int rightMargin_ = 0;
    int firstVisible_ = 0;  // Scrolled out of view on the left are the characters before this one.
    bool framed_ = false;
    bool measured_ = false;
    std::vector<INT> edges_;  // Right edge of each character, from the beginning of the text.
};

}  // namespace platform
