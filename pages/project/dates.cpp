// The formats of an automatic date.
#include "pages/project/dates.h"

#include <ctime>

const LPCSTR kPageDateFormats[kDateFormats] = {"%y-%m-%d", "%d-%m-%y", "%m-%d-%y", "%d/%m-%y",
                                               "%y/%m/%d", "%y/%d/%m", "%d/%m/%y", "%Y-%m-%d"};
const LPCSTR kOfferedDateFormats[kDateFormats] = {"%y-%m-%d", "%d-%m-%y", "%m-%d-%y", "%d/%m-%y",
                                                  "%y/%m/%d", "%y/%d/%m", "%d/%m/%y", "%Y/%m/%d"};

CString TodayText(LPCSTR format) {
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    char text[32] = "";
    if (local != nullptr) {
        std::strftime(text, sizeof text, format, local);
    }
    return text;
}
