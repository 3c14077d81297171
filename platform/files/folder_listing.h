// What a folder contains, in the order in which it is shown. Reading goes by slices, so that a slow or huge folder
// does not stop its reader; sizes and times are looked up only where they are needed.
#pragma once

#include <dirent.h>

#include <chrono>
#include <cstdint>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

namespace platform {

struct FolderEntry {
    std::string name;   // As the file system has it.
    std::string shown;  // In code page 1252, with "?" for what that cannot hold.
    std::string key;    // See sortKey.
    bool isFolder = false;
    bool isNameable = false;  // `shown` leads back to `name`.
    bool isKnown = false;     // Size and time have been looked up.
    std::uint64_t size = 0;
    std::time_t changed = 0;
};

class FolderListing {
public:
    using Clock = std::chrono::steady_clock;
    enum class Column { Name, Size, Changed };
    struct Order {
        Column column = Column::Name;
        bool descending = false;
        bool operator==(const Order&) const = default;
    };

    // Begins to read a folder, whose path is the file system's. Returns 0, or the error number, and then keeps what it
    // had. Left out are hidden entries and what is neither file nor folder.
    int open(const std::string& folder);
    // Goes on until the deadline. Returns true when the rows have changed.
    bool advance(Clock::time_point deadline);
    // Whether there is more to be done.
    bool isBusy() const { return reading_ || wanted_ != order_; }

    // Folders always come first. An order by size or time is in effect once all of it has been looked up.
    void setOrder(Order order);
    Order order() const { return wanted_; }
    // Shows files that match one of the patterns, and all folders; without patterns, all files.
    void setPatterns(std::vector<std::string> patterns);

    // Entries are numbered in the order in which they were read; rows show the entries that match.
    std::size_t rowCount() const { return rows_.size(); }
    std::uint32_t entryOfRow(std::size_t row) const { return rows_[row]; }
    const FolderEntry& entry(std::uint32_t index) const { return entries_[index]; }
    const FolderEntry& row(std::size_t row) const { return entries_[rows_[row]]; }
    // Looks up the size and time of a row.
    void learnRow(std::size_t row) { learn(entries_[rows_[row]]); }
    bool hasHiddenByPatterns() const { return rows_.size() < entries_.size(); }

private:
    struct Closer {
        void operator()(DIR* folder) const { closedir(folder); }
    };

    // False at the end of the folder.
    bool readOne();
    void learn(FolderEntry& entry) const;
    bool isShown(const FolderEntry& entry) const;
    bool isBefore(const FolderEntry& a, const FolderEntry& b) const;
    void sortFrom(std::size_t firstNew);

    std::unique_ptr<DIR, Closer> folder_;
    std::vector<FolderEntry> entries_;
    std::vector<std::uint32_t> rows_;  // Sorted by `order_`.
    std::vector<std::string> patterns_;
    Order order_;
    Order wanted_;
    std::size_t learned_ = 0;  // All entries before this one have been looked up for the wanted order.
    bool reading_ = false;
};

}  // namespace platform
