// Lines as text mode gives them: a carriage return before a line feed is no character of its own. The C library's text
// mode differs from system to system, and its paths are not the window API's.
#include "pages/project/first_line.h"

namespace {

class FileReader {
public:
    explicit FileReader(LPCSTR path)
        : m_file(::CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~FileReader() {
        if (IsOpen()) {
            ::CloseHandle(m_file);
        }
    }
    FileReader(const FileReader&) = delete;
    FileReader& operator=(const FileReader&) = delete;

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    bool Next(char& character) const {
        DWORD read = 0;
        return ::ReadFile(m_file, &character, 1, &read, nullptr) && read == 1;
    }

private:
    HANDLE m_file;
};

// The character that ends a text file wherever it stands.
constexpr char kEndOfText = '\x1A';

}  // namespace

BOOL ReadFirstLine(LPCSTR path, int maxLength, CString& line) {
    const FileReader file(path);
    if (!file.IsOpen()) {
        return FALSE;
    }
    line.Empty();
    char character = '\0';
    // One more than is wanted, for a carriage return that may turn out to belong to a line feed.
    while (line.GetLength() <= maxLength && file.Next(character) && character != '\0' && character != kEndOfText) {
        if (character == '\n' && line.Right(1) == "\r") {
            line = line.Left(line.GetLength() - 1);
        }
        line += character;
        if (character == '\n') {
            break;
        }
    }
    line = line.Left(maxLength);
    return TRUE;
}
