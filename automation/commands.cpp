// The table of commands.

#include "automation/commands.h"

#include <algorithm>
#include <iterator>

#include "automation/actions.h"
#include "automation/checks.h"
#include "automation/list_views.h"

namespace automation {
namespace {

constexpr CommandRow kCommands[] = {
    {"given", "tt", When::BetweenRuns, Kind::Action, Given},
    {"clear", "", When::BetweenRuns, Kind::Action, ClearStore},
    {"file", "tt", When::Always, Kind::Action, CreateScratchFile},
    {"profile", "tttt", When::BetweenRuns, Kind::Action, WriteProfile},
    {"open", "o*", When::BetweenRuns, Kind::Action, Open},

    {"tab", "t", When::DuringRun, Kind::Action, ClickTab},
    {"click", "n", When::DuringRun, Kind::Action, Click},
    {"focus", "n", When::DuringRun, Kind::Action, Focus},
    {"type", "nt", When::DuringRun, Kind::Action, TypeInto},
    {"keys", "t", When::DuringRun, Kind::Action, TypeKeys},
    {"press", "p", When::DuringRun, Kind::Action, PressKey},
    {"select", "ne", When::DuringRun, Kind::Action, Select},
    {"drag", "nn", When::DuringRun, Kind::Action, Drag},
    {"click-row", "nnr", When::DuringRun, Kind::Action, ClickRow},
    {"double-click-row", "nnr", When::DuringRun, Kind::Action, DoubleClickRow},
    {"rename-row", "nnt", When::DuringRun, Kind::Action, RenameRow},
    {"click-header", "nn", When::DuringRun, Kind::Action, ClickHeader},
    {"drag-header", "nnn", When::DuringRun, Kind::Action, DragHeader},
    {"pick", "t", When::DuringRun, Kind::Action, PickFile},
    {"answer", "tt", When::DuringRunOrBox, Kind::Check, Answer},
    {"ok", "", When::DuringRun, Kind::Action, PressOk},
    {"cancel", "", When::DuringRun, Kind::Action, PressCancel},
    {"close", "", When::DuringRun, Kind::Action, PressCloseBox},
    {"screenshot", "t", When::DuringRunOrBox, Kind::Action, Screenshot},

    {"expect text", "nt", When::DuringRunOrBox, Kind::Check, ExpectText},
    {"expect checked", "nn*", When::DuringRun, Kind::Check, ExpectChecked},
    {"expect unchecked", "nn*", When::DuringRun, Kind::Check, ExpectUnchecked},
    {"expect enabled", "nn*", When::DuringRun, Kind::Check, ExpectEnabled},
    {"expect disabled", "nn*", When::DuringRun, Kind::Check, ExpectDisabled},
    {"expect visible", "nn*", When::DuringRun, Kind::Check, ExpectVisible},
    {"expect hidden", "nn*", When::DuringRun, Kind::Check, ExpectHidden},
    {"expect focus", "n", When::DuringRun, Kind::Check, ExpectFocus},
    {"expect items", "nt*", When::DuringRun, Kind::Check, ExpectItems},
    {"expect count", "nn", When::DuringRun, Kind::Check, ExpectCount},
    {"expect selection", "nn", When::DuringRun, Kind::Check, ExpectSelection},
    {"expect position", "nn", When::DuringRun, Kind::Check, ExpectPosition},
    {"expect rows", "nn", When::DuringRun, Kind::Check, ExpectRows},
    {"expect cell", "nnnt", When::DuringRun, Kind::Check, ExpectCell},
    {"expect row-checked", "nn", When::DuringRun, Kind::Check, ExpectRowChecked},
    {"expect row-unchecked", "nn", When::DuringRun, Kind::Check, ExpectRowUnchecked},
    {"expect columns", "nn*", When::DuringRun, Kind::Check, ExpectColumns},
    {"expect tabs", "t*", When::DuringRun, Kind::Check, ExpectTabs},
    {"expect tab", "t", When::DuringRun, Kind::Check, ExpectTab},
    {"expect caption", "t", When::DuringRunOrBox, Kind::Check, ExpectCaption},
    {"expect pixel", "nnnnnn", When::DuringRun, Kind::Check, ExpectPixel},
    {"expect no-box", "", When::AlwaysOverBox, Kind::Check, ExpectNoBox},

    {"result", "n", When::BetweenRuns, Kind::Check, ExpectResult},
    {"store", "tt", When::Always, Kind::Check, ExpectStore},
    {"changed", "tn", When::Always, Kind::Check, ExpectChanged},
    {"records", "n", When::Always, Kind::Check, ExpectRecords},
    {"unchanged", "", When::Always, Kind::Check, ExpectUnchanged},
};

}  // namespace

const CommandRow* FindCommand(std::string_view name) {
    const auto* row = std::find_if(std::begin(kCommands), std::end(kCommands),
                                   [name](const CommandRow& candidate) { return candidate.name == name; });
    return row != std::end(kCommands) ? row : nullptr;
}

const char* ShapeOfCommand(std::string_view name) {
    const CommandRow* row = FindCommand(name);
    return row != nullptr ? row->shape : nullptr;
}

}  // namespace automation
