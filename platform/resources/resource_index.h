// Where each resource of one compiled resource image (.res) lies. The image is walked once, when its module
// registers it; afterwards every lookup is a binary search.
#pragma once

#include <windows.h>

#include <span>
#include <string>
#include <vector>

namespace platform {

// A type or a name: an integer, or a text in upper case (then `ordinal` is 0).
struct ResourceName {
    // Takes what FindResourceA takes: an integer in the pointer, a text, or a text "#123" for an integer.
    static ResourceName of(LPCSTR name);

    bool operator==(const ResourceName&) const = default;
    bool operator<(const ResourceName& other) const;

    WORD ordinal = 0;
    std::string text;
};

// An HRSRC is the address of one of these.
struct ResourceEntry {
    ResourceName type;
    ResourceName name;
    std::span<const std::byte> data;
};

class ResourceIndex {
public:
    // Reads up to the first entry that does not fit into the image; an image without the empty first entry that
    // marks the format has no resources. Of several languages of one resource the first is kept.
    explicit ResourceIndex(std::span<const std::byte> image);

    // Null when there is none. Entries live as long as the index.
    const ResourceEntry* find(const ResourceName& type, const ResourceName& name) const;
    bool hasType(const ResourceName& type) const;

private:
    std::vector<ResourceEntry> entries_;  // In order of type and name, without duplicates.
};

}  // namespace platform
