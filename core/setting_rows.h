// The rows of which a page is made: one setting with its control, or its group of buttons. Loader, data exchange,
// notification handlers and tests walk the same rows.
#pragma once

#include <span>

#include "core/leave_check.h"

class CSettingsPage;

// The member of a page that a row names, as the base class reaches it.
template <typename Value, typename Page>
constexpr Value CSettingsPage::*PageMember(Value Page::*member) {
    return static_cast<Value CSettingsPage::*>(member);
}

// What becomes of a field that is left while the transfer of the page's controls to its members fails, be it for
// another field: it is checked and recorded as far as it was read, or not at all.
enum class FailedTransfer { Ignored, Refuses };

// An edited text: an edit, or a combo box with an edit field. It is recorded when it is left after a change.
struct TextRow {
    // Accepts (1) or, after a message box, rejects (0) a field's text, which it may trim. The focus goes back to the
    // second control, null for none; the last one is the field in any case.
    using Check = int (*)(CSettingsPage& page, CString& text, CWnd* refocus, CWnd& field);
    using Exchange = void (*)(CDataExchange* exchange, int id, CString& text);
    using Pick = void (CSettingsPage::*)(const TextRow& row);

    UINT control;
    LPCSTR key;
    CString CSettingsPage::*member;
    // Null accepts every text.
    Check check = nullptr;
    // How the text is shown and read; null where the page shows it itself, and it is read when the field is left.
    Exchange exchange = &DDX_Text;
    // The most characters that can be typed; 0 for no limit.
    size_t maxLength = 0;
    // What a pick from the list does: one of the page's Pick operations. Every combo box has one.
    Pick pick = nullptr;
    LastEdit lastEdit = LastEdit::Noted;
    FailedTransfer failedTransfer = FailedTransfer::Ignored;
};

// Whether a click in a sheet that is not editable is undone, or recorded in the page's list, which is never merged
// then.
enum class ReadOnlyClick { Undone, Recorded };
// Whether a click tells the sheet that the page has been modified.
enum class SheetNotice { Modified, None };

struct CheckRow {
    UINT control;
    LPCSTR key;
    int CSettingsPage::*member;
    ReadOnlyClick readOnlyClick = ReadOnlyClick::Undone;
    SheetNotice notice = SheetNotice::Modified;
    // The stored values.
    LPCSTR checked = "1";
    LPCSTR unchecked = "0";
    // What becomes of a stored number; null keeps it.
    int (*loaded)(int number) = nullptr;
};

// Which button of a group has the index 0 in the store.
enum class Counted { FromFirst, FromLast };

// A group of radio buttons.
struct ChoiceRow {
    LPCSTR key;
    // The stored value is the button's index times this.
    int step;
    // The first is the one that the exchange names.
    std::span<const UINT> buttons;
    int CSettingsPage::*member;
    // The picture that shows the choice; 0 for none.
    UINT preview = 0;
    ReadOnlyClick readOnlyClick = ReadOnlyClick::Undone;
    Counted counted = Counted::FromFirst;

    // The number that is stored for a button.
    int StoredNumber(size_t button) const {
        const size_t index = counted == Counted::FromFirst ? button : buttons.size() - 1 - button;
        return static_cast<int>(index) * step;
    }
};

struct PageRows {
    std::span<const TextRow> texts;
    std::span<const CheckRow> checks;
    std::span<const ChoiceRow> choices;
};
