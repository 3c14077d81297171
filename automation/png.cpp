// Pictures of windows repeat the pixel to the left and the row above, so only these two distances are matched,
// with the fixed code of the deflate format.

#include "automation/png.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

namespace automation {
namespace {

constexpr size_t kMinMatch = 3;
constexpr size_t kMaxMatch = 258;
constexpr size_t kMaxDistance = 32768;
constexpr int kEndOfBlock = 256;

class BitWriter {
public:
    // Lowest bit first, as all numbers of the format but the codes themselves.
    void Put(unsigned value, int count) {
        m_nPending |= value << m_nBits;
        m_nBits += count;
        while (m_nBits >= 8) {
            m_bytes += static_cast<char>(m_nPending);
            m_nPending >>= 8;
            m_nBits -= 8;
        }
    }
    void PutCode(unsigned code, int count) {
        for (int bit = count - 1; bit >= 0; --bit) {
            Put(code >> bit & 1U, 1);
        }
    }
    std::string Finish() {
        if (m_nBits > 0) {
            Put(0, 8 - m_nBits);
        }
        return std::move(m_bytes);
    }

private:
    std::string m_bytes;
    unsigned m_nPending = 0;
    int m_nBits = 0;
};

// The fixed code of a literal byte, the end of the block or a match length's symbol.
void PutSymbol(BitWriter& out, int symbol) {
    const auto value = static_cast<unsigned>(symbol);
    if (symbol < 144) {
        out.PutCode(0x30 + value, 8);
    } else if (symbol < 256) {
        out.PutCode(0x190 + value - 144, 9);
    } else if (symbol < 280) {
        out.PutCode(value - 256, 7);
    } else {
        out.PutCode(0xC0 + value - 280, 8);
    }
}

// Lengths and distances are written as the number of their range and the place within it.
struct Range {
    unsigned start;
    int extraBits;
};

template <size_t Count>
constexpr std::array<Range, Count> MakeRanges(unsigned first, unsigned plain, unsigned perStep) {
    std::array<Range, Count> ranges{};
    unsigned start = first;
    for (unsigned i = 0; i < Count; ++i) {
        const int extra = i < plain ? 0 : static_cast<int>((i - plain) / perStep + 1);
        ranges[i] = {start, extra};
        start += 1U << extra;
    }
    return ranges;
}

constexpr auto kDistanceRanges = MakeRanges<30>(1, 4, 2);
// The longest match has a symbol of its own, one past the ranges that are computed.
constexpr auto kLengthRanges = MakeRanges<28>(kMinMatch, 8, 4);
constexpr int kLongestMatchSymbol = 285;

template <size_t Count>
size_t FindRange(const std::array<Range, Count>& ranges, unsigned value) {
    const auto next = std::upper_bound(ranges.begin(), ranges.end(), value,
                                       [](unsigned v, const Range& range) { return v < range.start; });
    return static_cast<size_t>(next - ranges.begin()) - 1;
}

void PutMatch(BitWriter& out, size_t length, size_t distance) {
    if (length == kMaxMatch) {
        PutSymbol(out, kLongestMatchSymbol);
    } else {
        const size_t range = FindRange(kLengthRanges, static_cast<unsigned>(length));
        PutSymbol(out, static_cast<int>(257 + range));
        out.Put(static_cast<unsigned>(length) - kLengthRanges[range].start, kLengthRanges[range].extraBits);
    }
    const size_t range = FindRange(kDistanceRanges, static_cast<unsigned>(distance));
    out.PutCode(static_cast<unsigned>(range), 5);
    out.Put(static_cast<unsigned>(distance) - kDistanceRanges[range].start, kDistanceRanges[range].extraBits);
}

size_t MatchLength(std::string_view data, size_t position, size_t distance) {
    if (distance > position || distance > kMaxDistance) {
        return 0;
    }
    const size_t limit = std::min(kMaxMatch, data.size() - position);
    size_t length = 0;
    while (length < limit && data[position + length] == data[position + length - distance]) {
        ++length;
    }
    return length;
}

std::string Deflate(std::string_view data, size_t pixelDistance, size_t rowDistance) {
    BitWriter out;
    out.Put(1, 1);  // The only block,
    out.Put(1, 2);  // in the fixed code.
    for (size_t position = 0; position < data.size();) {
        const size_t left = MatchLength(data, position, pixelDistance);
        const size_t above = MatchLength(data, position, rowDistance);
        const size_t length = std::max(left, above);
        if (length < kMinMatch) {
            PutSymbol(out, static_cast<unsigned char>(data[position++]));
            continue;
        }
        PutMatch(out, length, left >= above ? pixelDistance : rowDistance);
        position += length;
    }
    PutSymbol(out, kEndOfBlock);
    return out.Finish();
}

void AppendBigEndian(std::string& bytes, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>(value >> shift);
    }
}

std::uint32_t Adler32(std::string_view data) {
    constexpr std::uint32_t kModulus = 65521;
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const char c : data) {
        a = (a + static_cast<unsigned char>(c)) % kModulus;
        b = (b + a) % kModulus;
    }
    return b << 16 | a;
}

std::uint32_t Crc32(std::string_view data) {
    static const std::array<std::uint32_t, 256> kTable = [] {
        std::array<std::uint32_t, 256> table{};
        for (std::uint32_t i = 0; i < table.size(); ++i) {
            std::uint32_t value = i;
            for (int bit = 0; bit < 8; ++bit) {
                value = (value & 1) != 0 ? 0xEDB88320U ^ value >> 1 : value >> 1;
            }
            table[i] = value;
        }
        return table;
    }();
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char c : data) {
        crc = kTable[(crc ^ static_cast<unsigned char>(c)) & 0xFF] ^ crc >> 8;
    }
    return ~crc;
}

void AppendChunk(std::string& file, const char* kind, const std::string& content) {
    AppendBigEndian(file, static_cast<std::uint32_t>(content.size()));
    const std::string checked = kind + content;
    file += checked;
    AppendBigEndian(file, Crc32(checked));
}

void AppendColour(std::string& bytes, std::uint32_t colour) {
    for (int shift = 16; shift >= 0; shift -= 8) {
        bytes += static_cast<char>(colour >> shift);
    }
}

// The colours by number, in order of first appearance; more than a palette holds are left uncounted.
std::map<std::uint32_t, char> NumberColours(const Picture& picture, std::string& palette) {
    std::map<std::uint32_t, char> numbers;
    for (const std::uint32_t pixel : picture.pixels) {
        if (!numbers.emplace(pixel, static_cast<char>(numbers.size())).second) {
            continue;
        }
        AppendColour(palette, pixel);
        if (numbers.size() > 256) {
            break;
        }
    }
    return numbers;
}

}  // namespace

std::string EncodePng(const Picture& picture) {
    std::string palette;
    const std::map<std::uint32_t, char> numbers = NumberColours(picture, palette);
    const bool usesPalette = numbers.size() <= 256;
    const size_t bytesPerPixel = usesPalette ? 1 : 3;
    const size_t width = static_cast<size_t>(picture.width);

    std::string rows;
    for (size_t i = 0; i < picture.pixels.size(); ++i) {
        if (i % width == 0) {
            rows += '\0';  // The row's filter: none.
        }
        if (usesPalette) {
            rows += numbers.at(picture.pixels[i]);
        } else {
            AppendColour(rows, picture.pixels[i]);
        }
    }

    std::string header;
    AppendBigEndian(header, static_cast<std::uint32_t>(picture.width));
    AppendBigEndian(header, static_cast<std::uint32_t>(picture.height));
    header += {8, static_cast<char>(usesPalette ? 3 : 2), 0, 0, 0};

    std::string data = "\x78\x01" + Deflate(rows, bytesPerPixel, width * bytesPerPixel + 1);
    AppendBigEndian(data, Adler32(rows));

    std::string file = "\x89PNG\r\n\x1A\n";
    AppendChunk(file, "IHDR", header);
    if (usesPalette) {
        AppendChunk(file, "PLTE", palette);
    }
    AppendChunk(file, "IDAT", data);
    AppendChunk(file, "IEND", "");
    return file;
}

}  // namespace automation
