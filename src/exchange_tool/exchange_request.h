#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel {

// What the command line of VandrelExchange asks for.
struct ExchangeRequest {
    enum class What {
        choose,  // nothing: the user chooses in a window
        bringIn, // files alone, as when they are dropped on the program's icon: in windows, too
        importFile,
        exportFile,
        check,
        help,
        version,
        wrong, // see `complaint`
    };

    What what = What::choose;
    std::vector<std::wstring> files; // of importFile and exportFile, one
    std::optional<std::wstring> folder;
    std::wstring complaint;

    bool inWindows() const { return what == What::choose || what == What::bringIn; }
};

// `arguments` are those behind the program's name.
ExchangeRequest requestOf(std::span<const std::wstring> arguments);

// What --help prints: lines with their ends, no longer than a console is wide.
std::wstring_view exchangeHelp();

} // namespace vandrel
