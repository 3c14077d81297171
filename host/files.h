// The host's files: only regular ones, read whole, and written so that neither the old content nor the new is lost.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

std::filesystem::path PathFromUtf8(const std::string& utf8);
std::string Utf8FromPath(const std::filesystem::path& path);

// Throws a FileError unless there is a regular file of this name. Nothing is opened, so nothing is waited for.
void RequireRegularFile(const std::string& fileName);

// All bytes of a regular file. Throws a FileError.
std::string ReadWholeFile(const std::string& fileName);

// Why the file could not be written now, in English; nothing when it could. The file is not touched.
std::optional<std::string> WhyNotWritable(const std::string& fileName);

// Gives the file new content if it still holds `expected`; false when it holds something else by now. Links are
// followed and stay. The owner, the permissions and what else is attached to the file stay too: the file is replaced by
// a new one that has all of this or, where it has further names or something cannot be given to another file, written
// in place, with a copy of the old content beside it until the new one is on the disk. When anything fails the old
// content stays, and a FileError is thrown.
bool ExchangeWholeFile(const std::string& fileName, std::string_view expected, std::string_view bytes);

// Writes a new file beside the named one or, where that fails, in the folder for temporary files; only the owner may
// read it. Returns its name, or nothing when neither place takes it.
std::optional<std::string> KeepUnsaved(const std::string& fileName, std::string_view bytes);

// What earlier runs left beside the file: a line of English for each, with its name.
std::vector<std::string> DescribeLeftovers(const std::string& fileName);

}  // namespace host
