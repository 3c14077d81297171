// One header of a list view: the captions of its columns, which are clicked, dragged to another place, made wider and
// narrower. It tells its parent by WM_NOTIFY with the HDN_ codes. Images, filters and formats other than left-aligned
// are not offered.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

namespace platform {

class HeaderControl {
public:
    explicit HeaderControl(HWND window) : window_(window) {}

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    static constexpr int kNone = -1;
    struct Column {
        std::string text;
        int width = 0;  // Pixels.
    };
    // What the mouse is doing since the button went down.
    enum class Action { None, Click, Drag, Track };

    bool onInput(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT onHeaderMessage(UINT message, WPARAM wParam, LPARAM lParam);
    int onHdmInsertItem(int index, const HDITEMA& item);
    bool onHdmSetItem(int index, const HDITEMA& item);
    bool onHdmLayout(const HDLAYOUT& layout);
    bool onHdmGetItemRect(int index, RECT& rect) const;
    bool onHdmGetOrderArray(int count, int* order) const;
    bool onHdmSetOrderArray(int count, const int* order);

    void onWmSetFont(HFONT font, bool redraw);
    void onWmLButtonDown(POINT at);
    void onWmLButtonDblClk(POINT at);
    void onWmMouseMove(POINT at);
    void onWmLButtonUp(POINT at);
    void onWmCaptureChanged();

    int count() const { return static_cast<int>(columns_.size()); }
    bool has(int index) const { return index >= 0 && index < count(); }
    Column& at(int index) { return columns_[static_cast<std::size_t>(index)]; }
    const Column& at(int index) const { return columns_[static_cast<std::size_t>(index)]; }
    int columnAt(int place) const { return order_[static_cast<std::size_t>(place)]; }
    int placeOf(int column) const;
    RECT rectOf(int column) const;
    int hitTest(POINT at, UINT& flags) const;
    // The place in the order at which a dragged column would land; its own far above or below the header.
    int placeFor(int column, POINT at) const;
    void moveColumn(int column, int place);
    void setWidth(int column, int width);

    LRESULT notify(UINT code, int column, HDITEMA* item = nullptr) const;
    // Tells that widths or the order have changed.
    void notifyChanged(int column, UINT mask) const;

    void onWmPaint(HDC given);
    void paint(HDC dc) const;
    void paintColumn(HDC dc, int column) const;

    HWND window_;
    HFONT font_ = nullptr;
    std::vector<Column> columns_;
    std::vector<int> order_;  // The column at each place, from the left.
    Action action_ = Action::None;
    int pressed_ = kNone;     // The column that the action is about.
    POINT pressedAt_{};       // Where the button went down.
    int pressedWidth_ = 0;    // The column's width at that time.
    bool looksDown_ = false;  // The pressed column looks pressed.
    int dropPlace_ = kNone;   // Where a dragged column would land.
};

}  // namespace platform
