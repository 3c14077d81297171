#include "platform/resources/resource_index.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <variant>

namespace platform {
namespace {

// Puts compiled resource images together, entry by entry.
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

constexpr WORD kBitmap = 2;
constexpr WORD kRaw = 10;

// The image in memory of its own size, at an odd address, so that the sanitizers see every step outside.
class Image {
public:
    explicit Image(const std::string& bytes) : size_(bytes.size()), memory_(new std::byte[bytes.size() + 1]) {
        std::memcpy(memory_.get() + 1, bytes.data(), bytes.size());
        index_ = std::make_unique<ResourceIndex>(std::span<const std::byte>(memory_.get() + 1, size_));
    }

    // The data as text; "-" when there is no such resource.
    std::string find(LPCSTR type, LPCSTR name) const {
        const ResourceEntry* entry = index_->find(ResourceName::of(type), ResourceName::of(name));
        if (entry == nullptr) {
            return "-";
        }
        return {reinterpret_cast<const char*>(entry->data.data()), entry->data.size()};
    }

    bool hasType(LPCSTR type) const { return index_->hasType(ResourceName::of(type)); }

private:
    std::size_t size_;
    std::unique_ptr<std::byte[]> memory_;
    std::unique_ptr<ResourceIndex> index_;
};

ResBuilder sample() {
    return ResBuilder()
        .add(kRaw, WORD{7}, "seven")
        .add(kBitmap, u"PREVIEW", "pixels")
        .add(u"LIST", WORD{300}, "abc")
        .add(kRaw, WORD{5}, "");
}

TEST(ResourceIndex, FindsIntegersAndTextsInAnyOrderAndCase) {
    const Image image(sample().bytes());
    EXPECT_EQ(image.find(MAKEINTRESOURCEA(10), MAKEINTRESOURCEA(7)), "seven");
    EXPECT_EQ(image.find("#10", "#7"), "seven");
    EXPECT_EQ(image.find(RT_BITMAP, "Preview"), "pixels");
    EXPECT_EQ(image.find("list", MAKEINTRESOURCEA(300)), "abc");
    EXPECT_EQ(image.find(MAKEINTRESOURCEA(10), MAKEINTRESOURCEA(5)), "");
    EXPECT_EQ(image.find(MAKEINTRESOURCEA(10), MAKEINTRESOURCEA(6)), "-");
    EXPECT_EQ(image.find(RT_BITMAP, MAKEINTRESOURCEA(7)), "-");
    EXPECT_TRUE(image.hasType("LIST"));
    EXPECT_FALSE(image.hasType(RT_DIALOG));
}

// What is whole before the cut is found, what is cut is not, and nothing outside the image is read.
TEST(ResourceIndex, CutImageIsReadUpToTheCut) {
    const std::string whole = sample().bytes();
    const std::size_t firstEnd = 32 + 32 + 5;
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Image image(whole.substr(0, size));
        EXPECT_EQ(image.find(MAKEINTRESOURCEA(10), MAKEINTRESOURCEA(7)), size >= firstEnd ? "seven" : "-") << size;
    }
}

TEST(ResourceIndex, WrongSizesEndTheReading) {
    struct Case {
        std::size_t offset;
        DWORD value;
    };
    // Data size and header size of the second entry; the first one stays readable.
    const std::size_t second = 32 + 32 + 8;
    for (const Case& c : {Case{second, 0xFFFFFFFF},
                          {second, 0x7FFFFFFF},
                          {second + 4, 0},
                          {second + 4, 31},
                          {second + 4, 0xFFFFFFFC},
                          {second + 4, 36}}) {
        std::string bytes = sample().bytes();
        std::memcpy(bytes.data() + c.offset, &c.value, sizeof c.value);
        const Image image(bytes);
        EXPECT_EQ(image.find(MAKEINTRESOURCEA(10), MAKEINTRESOURCEA(7)), "seven");
        EXPECT_EQ(image.find(RT_BITMAP, "PREVIEW"), "-") << c.offset << ' ' << c.value;
    }
}

}  // namespace
}  // namespace platform
