// The text of a single-line edit: characters, selection and one step of undo. Knows no window. Text is code page 1252,
// positions count bytes from 0 to length().
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

// Letters of code page 1252 as capitals; other characters stay.
std::string upperCase(std::string_view text);

class EditText {
public:
    const std::string& text() const { return text_; }
    int length() const { return static_cast<int>(text_.size()); }

    // The selection reaches from the anchor to the caret, either of which may come first.
    int anchor() const { return anchor_; }
    int caret() const { return caret_; }
    int selectionStart() const { return anchor_ < caret_ ? anchor_ : caret_; }
    int selectionEnd() const { return anchor_ < caret_ ? caret_ : anchor_; }
    bool hasSelection() const { return anchor_ != caret_; }
    std::string_view selected() const;

    // Positions beyond the text are moved to its end.
    void select(int anchor, int caret);

    // Puts `insertion` in place of the selection and the caret behind it; every change of the text goes through here.
    // Of consecutive undoable changes at one place one undo step is made; any other change forgets the step.
    void replaceSelection(std::string_view insertion, bool undoable);

    bool canUndo() const { return insertedCount_ > 0 || !removed_.empty(); }
    void forgetUndo();

    // What undoing would do: the part that was inserted gives way to `text`. Undoing selects that part, calls
    // forgetUndo and replaces it, which makes the redo step.
    struct UndoStep {
        int position;
        int inserted;
        std::string text;
    };
    UndoStep undoStep() const { return {undoPosition_, insertedCount_, removed_}; }
    // Selects what the last undoable change inserted; its place is remembered even when the step is forgotten.
    void selectInserted() { select(undoPosition_, undoPosition_ + insertedCount_); }

    // Beginning of the word before a position, and of the word behind it; a word reaches over the blanks behind it.
    int wordBefore(int position) const;
    int wordAfter(int position) const;

private:
    void rememberRemoval(int start, int end);
    void rememberInsertion(int start, int count);

    std::string text_;
    int anchor_ = 0;
    int caret_ = 0;
    int undoPosition_ = 0;
    int insertedCount_ = 0;
    std::string removed_;
};

}  // namespace platform
