// Layout of an entry: data size, header size, type, name, alignment, 16 bytes of flags, data, alignment; the integers
// are little-endian and everything is aligned to four bytes from the start of the image. An embedded image may itself
// begin at any address, so integers are copied out of it.

#include "platform/resources/resource_index.h"

#include "platform/resources/code_page.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <tuple>

static_assert(std::endian::native == std::endian::little,
              "The resource image is read in the byte order of the machine.");

namespace platform {
namespace {

constexpr std::size_t kSizesSize = 8;        // Data size and header size.
constexpr std::size_t kSmallestHeader = 32;  // With integers for type and name.
constexpr std::size_t kFlagsSize = 16;       // Version, memory flags, language, characteristics.
constexpr WORD kOrdinalMark = 0xFFFF;

std::size_t alignUp(std::size_t offset) {
    return (offset + 3) & ~std::size_t{3};
}

template <typename T>
T readAt(std::span<const std::byte> bytes, std::size_t offset) {
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

std::string upperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), codePageUpper);
    return text;
}

// Reads a type or name of a header and moves `at` behind it; nothing when it does not end within the header.
std::optional<ResourceName> readName(std::span<const std::byte> header, std::size_t& at) {
    std::u16string text;
    while (at + sizeof(WORD) <= header.size()) {
        const WORD unit = readAt<WORD>(header, at);
        at += sizeof(WORD);
        if (text.empty() && unit == kOrdinalMark) {
            if (at + sizeof(WORD) > header.size()) {
                return std::nullopt;
            }
            const WORD ordinal = readAt<WORD>(header, at);
            at += sizeof(WORD);
            return ResourceName{ordinal, {}};
        }
        if (unit == 0) {
            return ResourceName{0, upperCase(utf16ToCodePage(text, Unmapped::QuestionMark))};
        }
        text += static_cast<char16_t>(unit);
    }
    return std::nullopt;
}

// Reads the entry at `offset` and moves the offset to the next one; nothing when the entry is malformed.
std::optional<ResourceEntry> readEntry(std::span<const std::byte> image, std::size_t& offset) {
    if (image.size() - offset < kSmallestHeader) {
        return std::nullopt;
    }
    const std::size_t dataSize = readAt<DWORD>(image, offset);
    const std::size_t headerSize = readAt<DWORD>(image, offset + sizeof(DWORD));
    const std::size_t left = image.size() - offset;
    if (headerSize < kSmallestHeader || headerSize > left || dataSize > left - headerSize) {
        return std::nullopt;
    }
    const auto names = image.subspan(offset + kSizesSize, headerSize - kSizesSize - kFlagsSize);
    std::size_t at = 0;
    auto type = readName(names, at);
    if (!type) {
        return std::nullopt;
    }
    auto name = readName(names, at);
    if (!name) {
        return std::nullopt;
    }
    const auto data = image.subspan(offset + headerSize, dataSize);
    // The alignment of the last entry may be missing.
    offset = std::min(image.size(), alignUp(offset + headerSize + dataSize));
    return ResourceEntry{std::move(*type), std::move(*name), data};
}

bool isFormatMark(const ResourceEntry& entry) {
    const ResourceName zero{};
    return entry.type == zero && entry.name == zero && entry.data.empty();
}

bool inOrder(const ResourceEntry& a, const ResourceEntry& b) {
    return std::tie(a.type, a.name) < std::tie(b.type, b.name);
}

}  // namespace

ResourceName ResourceName::of(LPCSTR name) {
    if (IS_INTRESOURCE(name)) {
        return {static_cast<WORD>(reinterpret_cast<ULONG_PTR>(name)), {}};
    }
    if (name[0] == '#') {
        return {static_cast<WORD>(std::strtoul(name + 1, nullptr, 10)), {}};
    }
    return {0, upperCase(name)};
}

bool ResourceName::operator<(const ResourceName& other) const {
    return std::tie(ordinal, text) < std::tie(other.ordinal, other.text);
}

ResourceIndex::ResourceIndex(std::span<const std::byte> image) {
    std::size_t offset = 0;
    const auto mark = readEntry(image, offset);
    if (!mark || !isFormatMark(*mark)) {
        return;
    }
    while (auto entry = readEntry(image, offset)) {
        entries_.push_back(std::move(*entry));
    }
    std::stable_sort(entries_.begin(), entries_.end(), inOrder);
    const auto same = [](const ResourceEntry& a, const ResourceEntry& b) {
        return a.type == b.type && a.name == b.name;
    };
    entries_.erase(std::unique(entries_.begin(), entries_.end(), same), entries_.end());
}

const ResourceEntry* ResourceIndex::find(const ResourceName& type, const ResourceName& name) const {
    const auto before = [&](const ResourceEntry& entry, int) {
        return std::tie(entry.type, entry.name) < std::tie(type, name);
    };
    const auto found = std::lower_bound(entries_.begin(), entries_.end(), 0, before);
    const bool match = found != entries_.end() && found->type == type && found->name == name;
    return match ? &*found : nullptr;
}

bool ResourceIndex::hasType(const ResourceName& type) const {
    const auto before = [](const ResourceEntry& entry, const ResourceName& wanted) { return entry.type < wanted; };
    const auto found = std::lower_bound(entries_.begin(), entries_.end(), type, before);
    return found != entries_.end() && found->type == type;
}

}  // namespace platform
