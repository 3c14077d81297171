// Writes dialog templates into memory, in the classic and in the extended form, as the resource compiler lays them out.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>
#include <vector>

// Classes of controls by their numbers in a template.
constexpr WORD kButton = 0x80;
constexpr WORD kEdit = 0x81;
constexpr WORD kStatic = 0x82;
constexpr WORD kComboBox = 0x85;

struct TemplateItem {
    WORD windowClass;
    int id;
    const char* caption;
    DWORD style;
    short x, y, width, height;
};

class TemplateBuilder {
public:
    enum class Form { Classic, Extended };

    TemplateBuilder(Form form, DWORD style, short width, short height, std::string_view caption, DWORD exStyle = 0,
                    short x = 10, short y = 10)
        : form_(form) {
        if (form == Form::Extended) {
            word(1);
            word(0xFFFF);
            dword(0);
            dword(exStyle);
            dword(style | DS_SETFONT);
        } else {
            dword(style | DS_SETFONT);
            dword(exStyle);
        }
        countAt_ = words_.size();
        word(0);
        placeAndSize(x, y, width, height);
        word(0);
        word(0);
        text(caption);
        word(8);
        if (form == Form::Extended) {
            word(FW_NORMAL);
            word(0x0100);
        }
        text("MS Shell Dlg");
    }

    // `windowClass` is an atom from 0x80 (button) to 0x85 (combo box).
    TemplateBuilder& add(WORD windowClass, int id, std::string_view caption, DWORD style, short x = 5, short y = 5,
                         short width = 40, short height = 12) {
        beginItem(id, style, x, y, width, height);
        word(0xFFFF);
        word(windowClass);
        return endItem(caption);
    }

    TemplateBuilder& add(std::string_view windowClass, int id, std::string_view caption, DWORD style, short x = 5,
                         short y = 5, short width = 40, short height = 12) {
        beginItem(id, style, x, y, width, height);
        text(windowClass);
        return endItem(caption);
    }

    TemplateBuilder& add(const TemplateItem& item) {
        return add(item.windowClass, item.id, item.caption, item.style, item.x, item.y, item.width, item.height);
    }

    LPCDLGTEMPLATEA get() const { return reinterpret_cast<LPCDLGTEMPLATEA>(words_.data()); }
    const std::vector<std::uint16_t>& words() const { return words_; }

private:
    void beginItem(int id, DWORD style, short x, short y, short width, short height) {
        if (words_.size() % 2 != 0) {
            word(0);
        }
        ++words_[countAt_];
        const DWORD fullStyle = style | WS_CHILD | WS_VISIBLE;
        if (form_ == Form::Extended) {
            dword(0);
            dword(0);
            dword(fullStyle);
        } else {
            dword(fullStyle);
            dword(0);
        }
        placeAndSize(x, y, width, height);
        if (form_ == Form::Extended) {
            dword(static_cast<DWORD>(id));
        } else {
            word(static_cast<WORD>(id));
        }
    }

    TemplateBuilder& endItem(std::string_view caption) {
        text(caption);
        word(0);
        return *this;
    }

    void placeAndSize(short x, short y, short width, short height) {
        for (const short value : {x, y, width, height}) {
            word(static_cast<WORD>(value));
        }
    }

    void word(unsigned value) { words_.push_back(static_cast<std::uint16_t>(value)); }

    void dword(DWORD value) {
        word(value & 0xFFFF);
        word(value >> 16);
    }

    void text(std::string_view characters) {
        for (const char character : characters) {
            word(static_cast<unsigned char>(character));
        }
        word(0);
    }

    Form form_;
    std::size_t countAt_ = 0;
    std::vector<std::uint16_t> words_;
};
