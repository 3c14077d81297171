// CMdbRecord: one byte string of tagged fields.
#include "include/tavrikconfig.h"

#include <cstring>
#include <new>

namespace {

constexpr int kFirstTag = 1;
constexpr int kLastTag = 127;

// Offset of the NUL that ends the record: the sum of its fields, each with its NUL.
std::size_t EndOffset(const char* bytes) {
    std::size_t offset = 0;
    while (bytes[offset] != '\0') {
        offset += std::strlen(bytes + offset) + 1;
    }
    return offset;
}

char* AllocateBuffer(std::size_t size) {
    return static_cast<char*>(::operator new(size, std::nothrow));
}

}  // namespace

CMdbRecord::CMdbRecord(const char* bytes) noexcept {
    const std::size_t end = bytes == nullptr ? 0 : EndOffset(bytes);
    if (end < 2) {
        return;
    }
    m_pData = AllocateBuffer(end + 1);
    if (m_pData != nullptr) {
        std::memcpy(m_pData, bytes, end + 1);
    }
}

CMdbRecord::~CMdbRecord() {
    ::operator delete(m_pData);
    m_pData = nullptr;
}

unsigned CMdbRecord::GetSize() const {
    return m_pData == nullptr ? 0U : static_cast<unsigned>(EndOffset(m_pData) + 1);
}

int CMdbRecord::FindField(int tag) const {
    if (m_pData == nullptr || tag < kFirstTag || tag > kLastTag) {
        return -1;
    }
    std::size_t offset = 0;
    while (m_pData[offset] != '\0') {
        if (m_pData[offset] == static_cast<char>(tag)) {
            return static_cast<int>(offset);
        }
        offset += std::strlen(m_pData + offset) + 1;
    }
    return -1;
}

const char* CMdbRecord::GetField(int tag) const {
    const int offset = FindField(tag);
    return offset < 0 ? nullptr : m_pData + offset + 1;
}

char* CMdbRecord::GetField(int tag) {
    const int offset = FindField(tag);
    return offset < 0 ? nullptr : m_pData + offset + 1;
}

char* CMdbRecord::SetField(int tag, const char* text) {
    if (tag < kFirstTag || tag > kLastTag) {
        return nullptr;
    }
    const int found = FindField(tag);
    const std::size_t offset = found < 0 ? 0 : static_cast<std::size_t>(found);
    const std::size_t size = GetSize();
    const std::size_t oldLength = found < 0 ? 0 : std::strlen(m_pData + offset);  // Tag and text.
    const std::size_t newLength = text == nullptr ? 0 : 1 + std::strlen(text);

    if (newLength <= oldLength) {
        if (found < 0) {
            return nullptr;
        }
        char* field = m_pData + offset;
        const std::size_t rest = size - offset - oldLength - 1;  // Behind the field's NUL, final NUL included.
        const char* behind = field + oldLength + 1;
        if (text == nullptr) {
            std::memmove(field, behind, rest);
        } else {
            std::memmove(field + 1, text, newLength);  // The text's NUL takes the place that the tag has in the length.
            std::memmove(field + 1 + newLength, behind, rest);
        }
        return field + 1;
    }

    // The field grows or is new: it comes first in a new buffer, the others follow in their order.
    const std::size_t added = (found < 0 ? 1U : 0U) + (m_pData == nullptr ? 1U : 0U);
    char* buffer = AllocateBuffer(size + (newLength - oldLength) + added);
    if (buffer == nullptr) {
        return nullptr;
    }
    char* out = buffer;
    *out++ = static_cast<char>(tag);
    std::memcpy(out, text, newLength);
    out += newLength;
    *out = '\0';
    if (found >= 0) {
        std::memcpy(out, m_pData, offset);
        out += offset;
        std::memcpy(out, m_pData + offset + oldLength + 1, size - offset - oldLength - 1);
    } else if (m_pData != nullptr) {
        std::memcpy(out, m_pData, size);
    }
    ::operator delete(m_pData);
    m_pData = buffer;
    return m_pData + 1;
}
