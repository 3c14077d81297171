// Reading, filtering and ordering of a folder.
#include "platform/files/folder_listing.h"

#include "platform/files/file_path.h"
#include "platform/files/swedish_text.h"
#include "platform/resources/code_page.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace platform {

namespace {

// How many cheap steps are made between two looks at the clock.
constexpr std::size_t kStepsPerLook = 32;

template <class Value>
int compared(const Value& a, const Value& b) {
    return a < b ? -1 : b < a ? 1 : 0;
}

}  // namespace

int FolderListing::open(const std::string& folder) {
    std::unique_ptr<DIR, Closer> opened(opendir(folder.c_str()));
    if (opened == nullptr) {
        return errno;
    }
    folder_ = std::move(opened);
    entries_.clear();
    rows_.clear();
    learned_ = 0;
    order_ = wanted_;
    reading_ = true;
    return 0;
}

bool FolderListing::advance(Clock::time_point deadline) {
    const std::size_t shownBefore = rows_.size();
    std::size_t steps = 0;
    const auto inTime = [&] { return ++steps % kStepsPerLook != 0 || Clock::now() < deadline; };
    while (reading_ && inTime()) {
        reading_ = readOne();
    }
    if (rows_.size() != shownBefore) {
        sortFrom(shownBefore);
    }
    if (reading_ || wanted_ == order_) {
        return rows_.size() != shownBefore;
    }
    const bool byName = wanted_.column == Column::Name;
    while (!byName && learned_ < entries_.size() && inTime()) {
        learn(entries_[learned_++]);
    }
    if (!byName && learned_ < entries_.size()) {
        return rows_.size() != shownBefore;
    }
    order_ = wanted_;
    sortFrom(0);
    return true;
}

bool FolderListing::readOne() {
    const dirent* found = readdir(folder_.get());
    if (found == nullptr) {
        return false;
    }
    if (found->d_name[0] == '.') {
        return true;
    }
    FolderEntry entry;
    entry.name = found->d_name;
    entry.isFolder = found->d_type == DT_DIR;
    if (found->d_type != DT_DIR && found->d_type != DT_REG) {
        struct stat status {};
        const bool exists = fstatat(dirfd(folder_.get()), found->d_name, &status, 0) == 0;
        if (!exists || (!S_ISDIR(status.st_mode) && !S_ISREG(status.st_mode))) {
            return true;
        }
        entry.isFolder = S_ISDIR(status.st_mode);
    }
    entry.shown = utf8ToCodePage(entry.name, Unmapped::QuestionMark);
    entry.key = sortKey(entry.shown);
    // A "\" in a name would be taken for a separator.
    entry.isNameable = entry.name.find('\\') == std::string::npos && codePageToUtf8(entry.shown) == entry.name;
    if (order_.column != Column::Name) {
        learn(entry);
    }
    if (isShown(entry)) {
        rows_.push_back(static_cast<std::uint32_t>(entries_.size()));
    }
    entries_.push_back(std::move(entry));
    return true;
}

void FolderListing::learn(FolderEntry& entry) const {
    struct stat status {};
    if (!entry.isKnown && fstatat(dirfd(folder_.get()), entry.name.c_str(), &status, 0) == 0) {
        entry.size = entry.isFolder ? 0 : static_cast<std::uint64_t>(status.st_size);
        entry.changed = status.st_mtime;
    }
    entry.isKnown = true;
}

void FolderListing::setOrder(Order order) {
    wanted_ = order;
}

void FolderListing::setPatterns(std::vector<std::string> patterns) {
    patterns_ = std::move(patterns);
    rows_.clear();
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (isShown(entries_[i])) {
            rows_.push_back(static_cast<std::uint32_t>(i));
        }
    }
    sortFrom(0);
}

bool FolderListing::isShown(const FolderEntry& entry) const {
    return entry.isFolder || patterns_.empty() ||
           std::any_of(patterns_.begin(), patterns_.end(),
                       [&](const std::string& pattern) { return matchesPattern(entry.shown, pattern); });
}

bool FolderListing::isBefore(const FolderEntry& a, const FolderEntry& b) const {
    if (a.isFolder != b.isFolder) {
        return a.isFolder;
    }
    int first = 0;
    if (order_.column == Column::Size) {
        first = compared(a.size, b.size);
    } else if (order_.column == Column::Changed) {
        first = compared(a.changed, b.changed);
    } else {
        first = compared(a.key, b.key);
        first = first != 0 ? first : compared(a.name, b.name);
    }
    if (first != 0) {
        return (first < 0) != order_.descending;
    }
    const int second = compared(a.key, b.key);
    return second != 0 ? second < 0 : a.name < b.name;
}

// The rows before the new ones are in order already.
void FolderListing::sortFrom(std::size_t firstNew) {
    const auto before = [this](std::uint32_t a, std::uint32_t b) { return isBefore(entries_[a], entries_[b]); };
    const auto middle = rows_.begin() + static_cast<std::ptrdiff_t>(firstNew);
    std::sort(middle, rows_.end(), before);
    std::inplace_merge(rows_.begin(), middle, rows_.end(), before);
}

}  // namespace platform
