// Puts compiled resource images together, entry by entry.
#pragma once

#include <windows.h>

#include <cstring>
#include <string>
#include <variant>
#include <vector>

namespace platform {

class ResBuilder {
public:
    using Name = std::variant<WORD, std::u16string>;

    ResBuilder() { add(WORD{0}, WORD{0}, {}); }

    ResBuilder& add(const Name& type, const Name& name, const std::string& data, WORD language = 0x041D) {
        std::string header;
        appendName(header, type);
        appendName(header, name);
        header.resize((header.size() + 3) / 4 * 4);
        append(header, DWORD{0});
        append(header, WORD{0x1030});
        append(header, language);
        append(header, DWORD{0});
        append(header, DWORD{0});
        bytes_.resize((bytes_.size() + 3) / 4 * 4);
        append(bytes_, static_cast<DWORD>(data.size()));
        append(bytes_, static_cast<DWORD>(header.size() + 8));
        bytes_ += header + data;
        return *this;
    }

    // A block of a string table with these strings first and empty ones behind.
    static std::string stringBlock(const std::vector<std::u16string>& strings) {
        std::string block;
        for (std::size_t i = 0; i < 16; ++i) {
            const std::u16string text = i < strings.size() ? strings[i] : std::u16string();
            append(block, static_cast<WORD>(text.size()));
            for (const char16_t unit : text) {
                append(block, unit);
            }
        }
        return block;
    }

    const std::string& bytes() const { return bytes_; }

private:
    template <typename T>
    static void append(std::string& bytes, T value) {
        char raw[sizeof(T)];
        std::memcpy(raw, &value, sizeof(T));
        bytes.append(raw, sizeof(T));
    }

    static void appendName(std::string& bytes, const Name& name) {
        if (const WORD* ordinal = std::get_if<WORD>(&name)) {
            append(bytes, WORD{0xFFFF});
            append(bytes, *ordinal);
            return;
        }
        for (const char16_t unit : std::get<std::u16string>(name) + u'\0') {
            append(bytes, unit);
        }
    }

    std::string bytes_;
};

}  // namespace platform
