// Text, selection and undo of a single-line edit.
#include "platform/controls/edit_text.h"

#include <algorithm>

namespace platform {
namespace {

struct CasePair {
    unsigned char upper;
    unsigned char lower;
};

// Letters of code page 1252 whose cases do not lie 32 apart.
constexpr CasePair kOddPairs[] = {{0x8A, 0x9A}, {0x8C, 0x9C}, {0x8E, 0x9E}, {0x9F, 0xFF}};
constexpr unsigned char kCaseDistance = 0x20;

bool isRegularUpper(unsigned char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
}

unsigned char toUpper(unsigned char c) {
    for (const CasePair& pair : kOddPairs) {
        if (c == pair.lower) {
            return pair.upper;
        }
    }
    const auto shifted = static_cast<unsigned char>(c - kCaseDistance);
    return isRegularUpper(shifted) ? shifted : c;
}

}  // namespace

std::string upperCase(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        c = static_cast<char>(toUpper(static_cast<unsigned char>(c)));
    }
    return result;
}

std::string_view EditText::selected() const {
    return std::string_view(text_).substr(static_cast<std::size_t>(selectionStart()),
                                          static_cast<std::size_t>(selectionEnd() - selectionStart()));
}

void EditText::select(int anchor, int caret) {
    anchor_ = std::clamp(anchor, 0, length());
    caret_ = std::clamp(caret, 0, length());
}

void EditText::replaceSelection(std::string_view insertion, bool undoable) {
    const int start = selectionStart();
    const int end = selectionEnd();
    const int count = static_cast<int>(insertion.size());
    if (undoable) {
        rememberRemoval(start, end);
        rememberInsertion(start, count);
    } else if (start != end || count > 0) {
        forgetUndo();
    }
    text_.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start), insertion);
    select(start + count, start + count);
}

void EditText::rememberRemoval(int start, int end) {
    if (start == end) {
        return;
    }
    const std::string_view gone = selected();
    const bool continues = insertedCount_ == 0 && !removed_.empty();
    if (continues && start == undoPosition_) {
        removed_ += gone;
    } else if (continues && end == undoPosition_) {
        removed_.insert(0, gone);
        undoPosition_ = start;
    } else {
        removed_ = gone;
        undoPosition_ = start;
    }
    insertedCount_ = 0;
}

void EditText::rememberInsertion(int start, int count) {
    if (count == 0) {
        return;
    }
    const bool continues = start == undoPosition_ || (insertedCount_ > 0 && start == undoPosition_ + insertedCount_);
    if (continues) {
        insertedCount_ += count;
        return;
    }
    undoPosition_ = start;
    insertedCount_ = count;
    removed_.clear();
}

void EditText::forgetUndo() {
    insertedCount_ = 0;
    removed_.clear();
}

int EditText::wordBefore(int position) const {
    const auto isBlank = [this](int index) { return text_[static_cast<std::size_t>(index)] == ' '; };
    int index = std::clamp(position, 0, length());
    while (index > 0 && isBlank(index - 1)) {
        --index;
    }
    while (index > 0 && !isBlank(index - 1)) {
        --index;
    }
    return index;
}

int EditText::wordAfter(int position) const {
    const auto isBlank = [this](int index) { return text_[static_cast<std::size_t>(index)] == ' '; };
    int index = std::clamp(position, 0, length());
    while (index < length() && !isBlank(index)) {
        ++index;
    }
    while (index < length() && isBlank(index)) {
        ++index;
    }
    return index;
}

}  // namespace platform
