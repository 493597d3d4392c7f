#include "exchange_tool/exchange_request.h"

#include <algorithm>

namespace vandrel {
namespace {

using What = ExchangeRequest::What;

constexpr std::wstring_view folderOption = L"--folder";

ExchangeRequest wrong(std::wstring complaint)
{
    ExchangeRequest request;
    request.what = What::wrong;
    request.complaint = std::move(complaint);
    return request;
}

// The words of the command line and the options among them.
struct Words {
    std::vector<std::wstring> words;
    ExchangeRequest request; // as far as the options say it
};

Words wordsOf(std::span<const std::wstring> arguments)
{
    Words found;
    bool options = true; // until "--"
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::wstring& argument = arguments[at];
        if (!options || (!argument.starts_with(L"-") && argument != L"/?")) {
            found.words.push_back(argument);
        } else if (argument == L"--") {
            options = false;
        } else if (argument == folderOption) {
            if (++at == arguments.size() || arguments[at].empty())
                return {{}, wrong(L"--folder needs the name of a folder.")};
            found.request.folder = arguments[at];
        } else if (argument == L"--help" || argument == L"-h" || argument == L"/?") {
            found.request.what = What::help;
        } else if (argument == L"--version") {
            found.request.what = What::version;
        } else {
            return {{}, wrong(L"There is no option " + argument + L".")};
        }
    }
    return found;
}

bool isPath(const std::wstring& word) { return word.find_first_of(L"\\/:") != std::wstring::npos; }

ExchangeRequest withFile(ExchangeRequest request, What what, std::vector<std::wstring> words)
{
    words.erase(words.begin());
    if (words.size() != 1 || words.front().empty()) {
        return wrong(what == What::importFile ? L"import needs the name of one file."
                                              : L"export needs the name of one file.");
    }
    request.what = what;
    request.files = std::move(words);
    return request;
}

} // namespace

ExchangeRequest requestOf(std::span<const std::wstring> arguments)
{
    auto [words, request] = wordsOf(arguments);
    if (request.what != What::choose || words.empty()) return request;
    const std::wstring& first = words.front();
    if (first == L"import") return withFile(std::move(request), What::importFile, std::move(words));
    if (first == L"export") return withFile(std::move(request), What::exportFile, std::move(words));
    if (first == L"check") {
        if (words.size() > 1) return wrong(L"check needs no name of a file.");
        request.what = What::check;
        return request;
    }
    // The names of several files come from Explorer, with their folders; anything else is a slip of the pen.
    if (words.size() > 1 && !isPath(first)) return wrong(L"There is no command " + first + L".");
    if (std::ranges::any_of(words, &std::wstring::empty)) return wrong(L"A file needs a name.");
    request.what = What::bringIn;
    request.files = std::move(words);
    return request;
}

std::wstring_view exchangeHelp()
{
    return L"Brings bookmarks from browsers into Vandrel, and takes them there.\r\n"
           L"\r\n"
           L"  VandrelExchange                           asks in a window what to do\r\n"
           L"  VandrelExchange FILE                      brings in the file, in a window\r\n"
           L"  VandrelExchange import FILE [--folder DIR]\r\n"
           L"  VandrelExchange export FILE [--folder DIR]\r\n"
           L"  VandrelExchange check [--folder DIR]\r\n"
           L"  VandrelExchange --help | --version\r\n"
           L"\r\n"
           L"import   makes new categories of the folders in a page of bookmarks, as\r\n"
           L"         browsers export it: all of them or none. No category that exists is\r\n"
           L"         changed.\r\n"
           L"export   writes all categories to a page that browsers can import. A file of\r\n"
           L"         that name is replaced.\r\n"
           L"check    reads all categories, says what looks wrong in them, and changes\r\n"
           L"         nothing.\r\n"
           L"\r\n"
           L"The categories are in the folder DIR, or else in that of this program. What is\r\n"
           L"written to a file or another program is in UTF-8.\r\n"
           L"\r\n"
           L"Exit status: 0, done; 1, done, but something was not kept, or check found\r\n"
           L"something; 2, nothing was done, and the reason is on standard error.\r\n";
}

} // namespace vandrel
