// A list view in report form below a parent that writes down what the list tells it.
#pragma once

#include "tests/conformance/trace.h"

#include <set>
#include <string>

class ListScene {
public:
    static constexpr int kFirstWidth = 100;
    static constexpr int kSecondWidth = 60;

    // Two columns and the rows of texts() with their numbers as parameters; an edit beside them has the focus.
    ListScene(Trace& trace, int rows);
    ~ListScene();
    ListScene(const ListScene&) = delete;
    ListScene& operator=(const ListScene&) = delete;

    HWND list() const { return list_; }
    HWND header() const { return reinterpret_cast<HWND>(ask(LVM_GETHEADER)); }
    HWND other() const { return other_; }
    LoggingParent& parent() { return parent_; }
    Trace& trace() const { return trace_; }

    LRESULT ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(list_, message, wParam, lParam);
    }
    int count() const { return number(ask(LVM_GETITEMCOUNT)); }
    int insertColumn(int index, const char* text, int width);
    int insertRow(int index, const char* text, const char* second, LPARAM param);
    void turnColumnsRound() const {
        constexpr int kOrder[] = {1, 0};
        ask(LVM_SETCOLUMNORDERARRAY, 2, reinterpret_cast<LPARAM>(kOrder));
    }
    BOOL setText(int index, int column, const char* text);
    BOOL setState(int index, UINT state, UINT mask);
    UINT stateOf(int index) const { return static_cast<UINT>(ask(LVM_GETITEMSTATE, wordOf(index), 0xFFFF)); }
    std::string textOf(int index, int column = 0) const;
    RECT rectOf(int index, int part) const;
    RECT cellOf(int index, int column, int part) const;

    // Points of a row: on its check box, its label, the second column, and right of all columns.
    POINT boxOf(int index) const { return at(rectOf(index, LVIR_BOUNDS).left + 8, index); }
    POINT labelOf(int index) const { return at(rectOf(index, LVIR_LABEL).left + 4, index); }
    POINT secondOf(int index) const { return at(kFirstWidth + 20, index); }
    POINT besideOf(int index) const { return at(kFirstWidth + kSecondWidth + 10, index); }
    POINT below() const { return {kFirstWidth + 20, 190}; }
    ListScene& click(POINT point) {
        postClick(list_, point.x, point.y);
        drain();
        return *this;
    }
    ListScene& doubleClick(POINT point);
    void drain() { drainQueue(); }

    // One line on the selection, the focus and the first row, then of each row with a state.
    void state(const char* after);
    template <class Action>
    void step(const char* after, Action action) {
        action();
        state(after);
    }
    // The rows as they are now: texts and parameters.
    void rows() const;

    // The parent refuses, or changes, what the notification asks for by answering with the value.
    void answer(UINT code, LRESULT result) {
        answeredCode_ = code;
        answerResult_ = result;
    }
    void clearAnswer() { answeredCode_ = 0; }
    // Called for each notification after its line.
    void onNotify(std::function<void(const NMHDR& header)> hook) { hook_ = std::move(hook); }
    // Leaves a notification out of the trace; custom draw is left out from the beginning.
    void hide(UINT code) { hidden_.insert(code); }
    void hideChanges() {
        hide(static_cast<UINT>(LVN_ITEMCHANGING));
        hide(static_cast<UINT>(LVN_ITEMCHANGED));
    }

private:
    static WPARAM wordOf(int index) { return static_cast<WPARAM>(index); }
    POINT at(LONG x, int index) const {
        const RECT row = rectOf(index, LVIR_BOUNDS);
        return {x, (row.top + row.bottom) / 2};
    }
    bool take(UINT message, LPARAM lParam, LRESULT& result);
    std::string describe(const NMHDR& header) const;

    Trace& trace_;
    LoggingParent parent_;
    HWND list_ = nullptr;
    HWND other_ = nullptr;
    UINT answeredCode_ = 0;
    LRESULT answerResult_ = 0;
    std::function<void(const NMHDR&)> hook_;
    std::set<UINT> hidden_;
};
