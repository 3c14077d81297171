// Reading of dialog templates. Menus are skipped: no dialog of this window system has one.
#include "platform/dialog/dialog_template.h"

#include "platform/resources/code_page.h"

#include <array>
#include <cstring>

namespace platform {

namespace {

constexpr WORD kOrdinalMark = 0xFFFF;
constexpr WORD kExtendedVersion = 1;
// A template in memory comes without a length. No dialog is longer, and a reader without end would run on in garbage.
constexpr std::size_t kLongestInMemory = 0x40000;

// Takes values from the front of a template. The first read beyond the end makes every further one fail.
class TemplateReader {
public:
    explicit TemplateReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    bool ok() const { return ok_; }

    template <typename Value>
    Value take() {
        Value value{};
        if (!has(sizeof value)) {
            return value;
        }
        std::memcpy(&value, bytes_.data() + at_, sizeof value);
        at_ += sizeof value;
        return value;
    }

    WORD peekWord() {
        const std::size_t before = at_;
        const WORD value = take<WORD>();
        at_ = before;
        return value;
    }

    std::string takeText() {
        std::u16string text;
        for (WORD unit = take<WORD>(); ok_ && unit != 0; unit = take<WORD>()) {
            text.push_back(static_cast<char16_t>(unit));
        }
        return utf16ToCodePage(text, Unmapped::QuestionMark);
    }

    TextOrOrdinal takeTextOrOrdinal() {
        TextOrOrdinal value;
        if (peekWord() == kOrdinalMark) {
            take<WORD>();
            value.ordinal = take<WORD>();
        } else {
            value.text = takeText();
        }
        return value;
    }

    const void* skip(std::size_t count) {
        if (!has(count)) {
            return nullptr;
        }
        const void* start = bytes_.data() + at_;
        at_ += count;
        return start;
    }

    // Items begin at multiples of four bytes, counted from the start of the template.
    void alignToItem() { skip((4 - at_ % 4) % 4); }

private:
    bool has(std::size_t count) {
        ok_ = ok_ && count <= bytes_.size() - at_;
        return ok_;
    }

    std::span<const std::byte> bytes_;
    std::size_t at_ = 0;
    bool ok_ = true;
};

// The window class behind an ordinal; empty for one that stands for none.
LPCSTR predefinedClass(WORD ordinal) {
    constexpr WORD kFirst = 0x80;
    constexpr std::array kNames = {"Button", "Edit", "Static", "ListBox", "ScrollBar", "ComboBox"};
    return ordinal >= kFirst && ordinal < kFirst + kNames.size() ? kNames.at(ordinal - kFirst) : "";
}

struct Header {
    DialogTemplate result;
    bool extended = false;
    WORD itemCount = 0;
};

Header readHeader(TemplateReader& reader) {
    Header header;
    DialogTemplate& dialog = header.result;
    dialog.style = reader.take<DWORD>();
    // Read as two words, the first four bytes of an extended template are its version and a mark that no style has.
    if (dialog.style == (static_cast<DWORD>(kOrdinalMark) << 16 | kExtendedVersion)) {
        header.extended = true;
        reader.take<DWORD>();  // Help id.
        dialog.exStyle = reader.take<DWORD>();
        dialog.style = reader.take<DWORD>();
    } else {
        dialog.exStyle = reader.take<DWORD>();
    }
    header.itemCount = reader.take<WORD>();
    dialog.x = reader.take<short>();
    dialog.y = reader.take<short>();
    dialog.width = reader.take<short>();
    dialog.height = reader.take<short>();
    reader.takeTextOrOrdinal();  // Menu.
    dialog.className = reader.takeTextOrOrdinal();
    dialog.caption = reader.takeText();
    if ((dialog.style & DS_SETFONT) != 0) {
        dialog.pointSize = reader.take<short>();
        if (header.extended) {
            reader.take<DWORD>();  // Weight, slant and character set: there is one dialog font.
        }
        reader.takeText();
    }
    return header;
}

DialogItem readItem(TemplateReader& reader, bool extended) {
    DialogItem item;
    reader.alignToItem();
    if (extended) {
        reader.take<DWORD>();  // Help id.
        item.exStyle = reader.take<DWORD>();
        item.style = reader.take<DWORD>();
    } else {
        item.style = reader.take<DWORD>();
        item.exStyle = reader.take<DWORD>();
    }
    item.x = reader.take<short>();
    item.y = reader.take<short>();
    item.width = reader.take<short>();
    item.height = reader.take<short>();
    item.id = extended ? reader.take<DWORD>() : reader.take<WORD>();
    item.className = reader.takeTextOrOrdinal();
    if (item.className.ordinal != 0) {
        item.className = {predefinedClass(item.className.ordinal), 0};
    }
    item.text = reader.takeTextOrOrdinal();
    // The length counts itself in the classic form only; the data handed over begin with it in both.
    const std::size_t length = reader.peekWord();
    const std::size_t withLength = extended || length == 0 ? length + sizeof(WORD) : length;
    const void* data = reader.skip(withLength);
    item.creationData = length != 0 ? data : nullptr;
    return item;
}

}  // namespace

std::optional<DialogTemplate> parseDialogHeader(std::span<const std::byte> bytes) {
    TemplateReader reader(bytes);
    Header header = readHeader(reader);
    if (!reader.ok()) {
        return std::nullopt;
    }
    return std::move(header.result);
}

std::optional<DialogTemplate> parseDialogTemplate(std::span<const std::byte> bytes) {
    TemplateReader reader(bytes);
    Header header = readHeader(reader);
    for (WORD i = 0; i < header.itemCount && reader.ok(); ++i) {
        DialogItem item = readItem(reader, header.extended);
        if (item.className.text.empty()) {
            return std::nullopt;
        }
        header.result.items.push_back(std::move(item));
    }
    if (!reader.ok()) {
        return std::nullopt;
    }
    return std::move(header.result);
}

std::span<const std::byte> dialogResource(HINSTANCE instance, LPCSTR name) {
    HRSRC resource = FindResourceA(instance, name, RT_DIALOG);
    if (resource == nullptr) {
        return {};
    }
    const auto* start = static_cast<const std::byte*>(LockResource(LoadResource(instance, resource)));
    return start != nullptr ? std::span(start, SizeofResource(instance, resource)) : std::span<const std::byte>();
}

std::span<const std::byte> dialogInMemory(LPCDLGTEMPLATEA dialogTemplate) {
    if (dialogTemplate == nullptr) {
        return {};
    }
    return {reinterpret_cast<const std::byte*>(dialogTemplate), kLongestInMemory};
}

}  // namespace platform
