// A tour of a sheet's pages with a picture of each.

#include <windows.h>

#include <commctrl.h>

#include <cctype>

#include "automation/actions.h"
#include "automation/capture.h"
#include "automation/codepage.h"
#include "automation/driver.h"
#include "automation/finder.h"
#include "automation/player.h"

namespace automation {
namespace {

// "Texter/Färger" as "Texter-Farger": letters of the languages at hand without their marks, all else a hyphen.
std::string AsciiName(const std::string& caption) {
    constexpr std::string_view kMarked = "\xE5\xE4\xE0\xE1\xC5\xC4\xF6\xF8\xD6\xD8\xE9\xE8\xC9\xFC\xDC";
    constexpr std::string_view kPlain = "aaaaAAooOOeeEuU";
    std::string name;
    for (const char c : caption) {
        const size_t marked = kMarked.find(c);
        const bool isPlain = static_cast<signed char>(c) > 0 && std::isalnum(static_cast<unsigned char>(c)) != 0;
        if (marked != std::string_view::npos) {
            name += kPlain[marked];
        } else if (isPlain) {
            name += c;
        } else if (!name.ends_with('-')) {
            name += '-';
        }
    }
    return name;
}

class Tour : public StepClient {
public:
    Tour(std::ostream& out, const std::filesystem::path& folder) : m_out(out), m_folder(folder) {}

    bool Run(const OpenFunction& open, const OpenArguments& arguments) {
        Driver driver(*this);
        std::optional<int> result;
        driver.RunDuring([&] { result = open(arguments); });
        if (!result || m_nPage == 0) {
            Fail("no sheet was opened");
        }
        return !m_bFailed;
    }

    bool OnStep() override {
        try {
            Step();
        } catch (const Failure& failure) {
            Fail(failure.what());
        }
        return true;
    }

    void OnStuck() override {
        Fail("the sheet does not answer");
        std::_Exit(1);
    }

private:
    void Step();
    void Fail(const std::string& message) {
        m_out << message << "\n";
        m_bFailed = true;
    }

    std::ostream& m_out;
    const std::filesystem::path& m_folder;
    InputQueue m_input;
    int m_nPage = 0;  // pages photographed
    bool m_bTabClicked = false;
    bool m_bFailed = false;
};

void Tour::Step() {
    if (!m_input.IsEmpty()) {
        m_input.DoNext();
        return;
    }
    HWND front = FrontWindow();
    HWND tabs = TabControl(front);
    if (tabs == nullptr) {
        if (const std::optional<MessageBoxText> box = ReadMessageBox(front)) {
            m_input.ClickMiddle(MessageBoxButton(front));
            throw Failure("message box " + ConvertFrom1252(box->caption + ": " + box->text));
        }
        throw Failure("a window that is no sheet is in front");
    }
    const std::vector<std::string> captions = TabCaptions(tabs);
    if (m_nPage == static_cast<int>(captions.size()) || m_bFailed) {
        m_input.ClickMiddle(GetDlgItem(front, IDCANCEL));
    } else if (!m_bTabClicked) {
        AddTabClick(m_input, tabs, m_nPage);
        m_bTabClicked = true;
    } else {
        const std::string name = std::to_string(m_nPage + 1) + "-" + AsciiName(captions[static_cast<size_t>(m_nPage)]);
        const std::u8string file = (m_folder / (name + ".png")).u8string();
        SaveClient(front, {file.begin(), file.end()});
        ++m_nPage;
        m_bTabClicked = false;
    }
}

}  // namespace

bool PhotographPages(const OpenFunction& open, const OpenArguments& arguments, std::ostream& out,
                     const std::filesystem::path& folder) {
    return Tour(out, folder).Run(open, arguments);
}

}  // namespace automation
