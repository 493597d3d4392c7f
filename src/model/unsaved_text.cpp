#include "model/unsaved_text.h"

namespace vandrel {
namespace {

std::wstring numberOf(std::size_t sites)
{
    return std::to_wstring(sites) + (sites == 1 ? L" site" : L" sites");
}

std::wstring areNotSaved(std::size_t sites)
{
    return numberOf(sites) + (sites == 1 ? L" is not saved. " : L" are not saved. ");
}

const wchar_t* them(std::size_t sites) { return sites == 1 ? L"it" : L"them"; }

std::wstring couldNotBeSaved(const std::wstring& title, const std::wstring& reason)
{
    return L"The changes to \"" + title + L"\" could not be saved: " + reason + L".\r\n\r\n";
}

} // namespace

std::wstring notSavedText(std::size_t sites) { return numberOf(sites) + L" not saved."; }

std::wstring addToCategoryText(std::size_t sites, const std::wstring& title)
{
    return areNotSaved(sites) + L"Add " + them(sites) + L" to \"" + title + L"\"?";
}

std::wstring makeCategoryText(std::size_t sites)
{
    return areNotSaved(sites) + L"Make a category for " + them(sites) + L"?";
}

std::wstring discardText(const std::wstring& title, const std::wstring& reason)
{
    return couldNotBeSaved(title, reason) + L"Discard them?";
}

std::wstring tryAgainText(const std::wstring& title, const std::wstring& reason)
{
    return couldNotBeSaved(title, reason) + L"Try again?";
}

} // namespace vandrel
