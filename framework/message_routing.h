// What the framework's own files share about messages under way. Nothing above the framework includes this.
#pragma once

#include <memory>
#include <unordered_map>

#include "framework/exception.h"
#include "framework/message_map.h"

class CWnd;

// Static, not per thread: the library is called on the host's one user-interface thread.
struct AfxRoutingState {
    // The message that the innermost framework window is handling, for Default().
    MSG lastMessage = {};
    // The window whose control notifications are ignored while its members are being exchanged, or null.
    HWND lockoutWindow = nullptr;
    // The modal window that is being closed, or null. Notifications to it and to its pages are ignored.
    HWND closingWindow = nullptr;
    // The object that waits for its window to be created, and the hook by which it will notice.
    CWnd* creating = nullptr;
    HHOOK creationHook = nullptr;
    // Modal windows of the framework that are running inside one another, and their loops.
    int modalWindows = 0;
    int modalDepth = 0;
    // Why those windows are to end. It stands until the next outermost one begins.
    AfxFailure failure = AfxFailure::None;
};
AfxRoutingState& AfxGetRoutingState();

// The first entry for a message in a map and those of its bases; null when there is none.
const AFX_MSGMAP_ENTRY* AfxFindEntry(const AFX_MSGMAP* map, UINT message, UINT code, UINT id);

// Deals with the exception in flight, at the border to the system, whose frames are not to be unwound: memory that ran
// out and windows that are gone end the modal windows; of anything else the user is told, unless that has happened
// already. Called inside a catch block.
void AfxReportException();

// The class that fits a window of somebody else, so that the customary cast of a temporary object is a true one.
std::unique_ptr<CWnd> AfxMakeTemporary(HWND window);

// Deletes the temporary drawing objects; none of them owns anything.
void AfxDeleteTemporaryGdiObjects();

// Temporary objects by handle.
template <typename Object>
class AfxTemporaryMap {
public:
    template <typename Make>
    Object* FindOrMake(const void* handle, Make make) {
        const auto found = m_objects.find(handle);
        // Made first, so that no handle is left without its object where there is no memory for one.
        return (found != m_objects.end() ? found : m_objects.emplace(handle, make()).first)->second.get();
    }

    // Forgets the objects for which the predicate holds.
    template <typename IsGone>
    void Purge(IsGone isGone) {
        std::erase_if(m_objects, [&](auto& entry) { return isGone(*entry.second); });
    }

private:
    std::unordered_map<const void*, std::unique_ptr<Object>> m_objects;
};
