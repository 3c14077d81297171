// Paths as users type them and as the open-file dialog gives them back, without a look at the disk. Both "/" and "\"
// separate; bytes stay as they are, so UTF-8 and code page 1252 do alike.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

// Where the file name begins: behind the last separator.
std::size_t fileNameOffset(std::string_view path);
// Where the extension begins: behind the last "." of the file name, which is the path's end for a name that ends with
// one; 0 without an extension.
std::size_t fileExtensionOffset(std::string_view path);

// The absolute path that is meant, with "/" between its parts and without ".", ".." and doubled separators. A relative
// path begins in `folder`, which is absolute; "~" alone or before a separator is `home`. A separator at the end goes.
std::string resolvePath(std::string_view typed, std::string_view folder, std::string_view home);

// Of a resolved path; the root's is the root.
std::string parentFolder(std::string_view path);
std::string pathInFolder(std::string_view folder, std::string_view name);

bool endsWithSeparator(std::string_view path);
// Without blanks around it and without quotation marks.
std::string trimmedName(std::string_view typed);

// Names in code page 1252, letters of either case alike. A pattern has "*" and "?"; "*.*" fits all names.
bool hasWildcard(std::string_view name);
bool matchesPattern(std::string_view name, std::string_view pattern);
bool beginsWith(std::string_view name, std::string_view prefix);
// The parts of "*.tds;*.rds".
std::vector<std::string> splitPatterns(std::string_view patterns);

}  // namespace platform
