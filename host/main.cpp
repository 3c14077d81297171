// A sample host of the settings component: loads a store from a file, calls the export, shows what changed.

#include <windows.h>

#include <cstdio>
#include <exception>
#include <iostream>

#include "automation/scratch.h"
#include "host/document.h"
#include "host/files.h"
#include "host/host_window.h"
#include "host/options.h"
#include "host/store.h"
#include "host/system.h"

namespace host {
namespace {

enum ExitStatus { kOk = 0, kCancelled = 1, kError = 2, kDisplayLost = 3, kNoDisplay = 4 };

// Throws a FileError when anything that was printed until now did not arrive, for example because the disk is full.
void FlushOutput(const std::string& doneBefore = "") {
    if (!std::cout.flush()) {
        throw FileError(doneBefore + "standard output cannot be written");
    }
}

class Host {
public:
    explicit Host(const Options& options) : m_options(options), m_document(options.settingsFile) {
        for (const Setting& setting : m_document.Settings()) {
            AppendSetting(m_store, setting);
        }
    }

    ExitStatus Run();

private:
    std::vector<automation::Scenario> ReadScenarios() const;
    bool WarnOfFiles() const;
    ExitStatus ServeUser(HostWindow& window, bool canSave);
    ExitStatus PlayScenarios(const std::vector<automation::Scenario>& scenarios);
    ExitStatus TakeScreenshots();
    int OpenSheet(const automation::OpenArguments& arguments);
    bool SaveChanges();

    const Options& m_options;
    Document m_document;
    CMdb m_store;
    ExportFunction m_export = nullptr;
    HWND m_hParent = nullptr;
};

ExitStatus Host::Run() {
    m_export = BindExport();
    const std::vector<automation::Scenario> scenarios = ReadScenarios();
    const Display display = m_options.usesMemoryDisplay ? Display::Memory
                            : m_options.IsInteractive() ? Display::Screen
                                                        : Display::ScreenOrMemory;
    if (m_options.awareness >= 0) {
        UseAwareness(m_options.awareness);
    }
    if (m_options.dotsPerInch != 0) {
        UseDotsPerInch(m_options.dotsPerInch);
    }
    if (!ChooseDisplay(display)) {
        std::cerr << "tavrikhost: " << WhyNoDisplay() << "\n";
        return kNoDisplay;
    }
    if (!IsFontFound()) {
        throw FileError("there is no font for the texts of the sheet (fontconfig finds none)");
    }
    HostWindow window(m_options.settingsFile, m_document.Settings());
    m_hParent = window.Handle();
    if (!m_options.screenshotFolder.empty()) {
        return TakeScreenshots();
    }
    const bool canSave = WarnOfFiles();
    return scenarios.empty() ? ServeUser(window, canSave) : PlayScenarios(scenarios);
}

// Says before there is anything to lose what stands in the way of saving. False when OK cannot save.
bool Host::WarnOfFiles() const {
    const std::string& name = m_options.settingsFile;
    for (const std::string& leftover : DescribeLeftovers(name)) {
        std::cerr << "tavrikhost: " << leftover << "\n";
    }
    const auto reason = WhyNotWritable(name);
    if (reason) {
        std::cerr << "tavrikhost: " << name << ": cannot be written: " << *reason
                  << "; OK will put the changed settings into another file\n";
    }
    return !reason;
}

ExitStatus Host::ServeUser(HostWindow& window, bool canSave) {
    std::cout << "The sheet is open on " << m_options.settingsFile
              << (canSave ? ". OK saves and lists the changes here.\n" : ".\n");
    std::cout.flush();  // Without standard output the sheet opens all the same; what comes after it tells the failure.
    window.Show();
    if (OpenSheet(m_options.open) == 1) {
        return kOk;
    }
    if (!IsDisplayLost()) {
        std::cout << "Cancelled; nothing was changed.\n";
    }
    return kCancelled;
}

std::vector<automation::Scenario> Host::ReadScenarios() const {
    std::vector<automation::Scenario> scenarios;
    for (const std::string& name : m_options.scenarios) {
        RequireRegularFile(name);
        scenarios.push_back(automation::ReadScenario(name, automation::ShapeOfCommand));
        if (!scenarios.back().errors.empty()) {
            throw FileError(scenarios.back().errors.front());
        }
    }
    return scenarios;
}

ExitStatus Host::PlayScenarios(const std::vector<automation::Scenario>& scenarios) {
    const automation::ScratchFolder scratch;
    UseProfileFolder(scratch.Path());
    ScenarioStore store(m_store);
    const automation::OpenFunction open = [&](const automation::OpenArguments& arguments) -> std::optional<int> {
        if (arguments.readOnly) {
            return std::nullopt;
        }
        return OpenSheet(arguments);
    };
    int failed = 0;
    for (const automation::Scenario& scenario : scenarios) {
        failed += automation::PlayScenario(scenario, store, open, std::cout, {scratch.Path(), false}).failed;
    }
    return failed == 0 ? kOk : kCancelled;
}

ExitStatus Host::TakeScreenshots() {
    const automation::OpenFunction open = [this](const automation::OpenArguments& arguments) {
        return OpenSheet(arguments);
    };
    const std::filesystem::path folder = PathFromUtf8(m_options.screenshotFolder);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        throw FileError(m_options.screenshotFolder + ": cannot be created: " + error.message());
    }
    return automation::PhotographPages(open, m_options.open, std::cerr, folder) ? kOk : kError;
}

int Host::OpenSheet(const automation::OpenArguments& arguments) {
    const int result = m_export(m_hParent, arguments.caption.c_str(), &m_store, arguments.designation,
                                arguments.optionalPages, arguments.hostMode);
    if (result == 1 && !SaveChanges() && m_options.IsInteractive()) {
        std::cout << "There was nothing to save.\n";
    }
    return result;
}

// False when the sheet has changed nothing.
bool Host::SaveChanges() {
    const std::vector<Setting> before = m_document.Settings();
    const std::vector<Setting> after = ReadSettings(m_store);
    if (before == after) {
        return false;
    }
    std::cout << m_document.Save(after) << DescribeChanges(before, after);
    FlushOutput("the changes are saved, but ");
    return true;
}

int Main(const std::vector<std::string>& arguments) {
    try {
        const Options options = ParseOptions(arguments);
        ExitStatus status = kOk;
        if (options.showsHelp) {
            std::cout << kUsage;
        } else if (options.showsVersion) {
            std::cout << "tavrikhost " TAVRIK_VERSION "\n";
        } else {
            status = Host(options).Run();
        }
        if (status != kOk && IsDisplayLost()) {
            std::cerr << "tavrikhost: the connection to the display was lost; what was not saved by then is given up\n";
            status = kDisplayLost;
        }
        FlushOutput();
        return status;
    } catch (const UsageError& error) {
        std::cerr << "tavrikhost: " << error.what() << " (see --help)\n";
    } catch (const std::exception& error) {
        std::cerr << "tavrikhost: " << error.what() << "\n";
    }
    return kError;
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) {
    host::ReserveStandardStreams();
    host::UseUtf8Console();
    return host::Main(host::CommandLineArguments(argc, argv));
}
