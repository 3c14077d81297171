// A host's window, store and user, for calls of the library in which something goes wrong.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "include/tavrikconfig.h"

// A store as it is in memory.
struct StoreImage {
    struct Record {
        const CMdbRecord* record;
        std::string bytes;
        int changed;
        bool operator==(const Record&) const = default;
    };
    std::vector<Record> records;

    bool operator==(const StoreImage&) const = default;
};
StoreImage ImageOf(const CMdb& store);
// The settings as text, a line each, whatever the records look like.
std::string SettingsOf(const CMdb& store);

class Host {
public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // Opens the sheet with all pages. The user acts once, when the sheet is first idle, with the sheet's window; a
    // sheet that is still open when it is idle again is cancelled. Message boxes are answered.
    int Open(CMdb& store, const std::function<void(HWND sheet)>& user);

    // Sees every message that the host's window gets and every window that the thread creates or activates.
    std::function<void(HWND window, UINT message)> m_witness;
    // Acts in dialogs in front of the sheet that are no message boxes.
    std::function<void(HWND dialog)> m_dialogUser;

    HWND m_window = nullptr;
    int m_boxes = 0;
    // An exception has come out of the window system.
    bool m_wasUnwound = false;

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
    void OnMessage(HWND window, UINT message, LPARAM lParam);
    static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time);
    void AnswerDialog();

    std::function<void(HWND)> m_user;
    HHOOK m_hook = nullptr;
    UINT_PTR m_timer = 0;
    int m_ticks = 0;
};

// The sheet's window, null when there is none.
HWND FindSheet();

// The user's means; each does nothing where the control is gone. Controls are those of the page that is shown.
HWND PageOf(HWND sheet);
void ShowPage(HWND sheet, int index);
HWND ControlOf(HWND sheet, int id);
void Type(HWND field, const char* text);
void Click(HWND button);
void PickNext(HWND list);
