#pragma once

#include <cstddef>
#include <string>

namespace vandrel {

// What the user is told and asked about sites that no file holds. `reason` is an error's description.

std::wstring notSavedText(std::size_t sites);
std::wstring addToCategoryText(std::size_t sites, const std::wstring& title);
std::wstring makeCategoryText(std::size_t sites);
std::wstring discardText(const std::wstring& title, const std::wstring& reason);
std::wstring tryAgainText(const std::wstring& title, const std::wstring& reason);

} // namespace vandrel
