// The few things that files.cpp needs of the system beyond the standard library.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>

namespace host {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// What a name stands for, links followed. Null for a regular file and where there is none; else one English word or
// two.
const char* KindOfNoFile(const std::filesystem::path& path);

// Open an existing regular file without waiting for anything, the second one for reading too. Null with errno set.
File OpenForReading(const std::filesystem::path& path);
File OpenForWriting(const std::filesystem::path& path);

// Creates a file that nobody may read who could not read `original`. Null with errno set, also when there is one.
File CreateNew(const std::filesystem::path& path, const std::filesystem::path& original);

// Whether the file has, or may have, further names, which a replacement would not get.
bool HasOtherNames(std::FILE* file);

// Gives a new file what belongs to the original besides its bytes. False when something cannot be given.
bool CopyAttributes(std::FILE* original, std::FILE* copy);

// Puts one closed file in another one's place. False when the system refuses.
bool Replace(const std::filesystem::path& original, const std::filesystem::path& replacement);

// Makes sure of the disk's space for a size. False with errno set; the file's size may then be any.
bool Reserve(std::FILE* file, size_t size);

bool Resize(std::FILE* file, size_t size);

// Waits until all that was written is on the disk.
bool Sync(std::FILE* file);

}  // namespace host
