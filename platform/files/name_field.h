// The field of the open-file dialog into which a name is typed: an edit that offers the names which begin with what
// stands in it. What is offered never changes the text by itself; it is picked with the arrow keys or the mouse.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace platform {

class NameField {
public:
    // What to offer for a text, best first.
    using Source = std::function<std::vector<std::string>(const std::string& typed)>;

    // Alt+Up asks for the folder above by calling `up`.
    NameField(HWND edit, Source source, std::function<void()> up);
    ~NameField();
    NameField(const NameField&) = delete;
    NameField& operator=(const NameField&) = delete;

    // To be called when the user has changed the text.
    void offer();
    void close();
    // Sets the text without offering anything; isBeingSet tells a change of that kind.
    void setText(const std::string& text);
    bool isBeingSet() const { return setting_; }

private:
    static LRESULT CALLBACK editProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    // True when the key was for the offered names.
    bool onWmKeyDown(UINT key);
    void show(const std::vector<std::string>& names);
    void pick(int index);
    void replaceText(const std::string& text);
    bool isOpen() const { return IsWindowVisible(list_) != FALSE; }

    HWND edit_;
    WNDPROC former_;
    HWND list_;
    Source source_;
    std::function<void()> up_;
    std::string typed_;  // What stood in the edit before a name was picked.
    bool setting_ = false;
    bool picking_ = false;
};

}  // namespace platform
