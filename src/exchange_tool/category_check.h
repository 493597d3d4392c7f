#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vandrel {

// Looks for what is probably wrong in category files. Each finding is a line of text without its end:
// "Work.udb:12: 3 pieces instead of 4". Lines are counted as text editors do, from 1: CR LF, CR and LF each
// end one.
class CategoryCheck {
  public:
    // Checks the decoded text of a file.
    void addCategory(const std::wstring& fileName, std::wstring_view text);
    // Something that concerns a file as a whole.
    void addFinding(const std::wstring& fileName, std::wstring_view what);

    std::vector<std::wstring> takeFindings(); // those since the last call
    std::size_t findings() const { return findings_; }
    std::size_t categories() const { return files_.size(); }
    std::size_t sites() const { return sites_; }

  private:
    struct Place {
        std::size_t file;
        std::size_t line;
    };

    void checkLine(std::wstring_view line, std::size_t number);
    void checkSite(std::wstring_view line, std::size_t number);
    void add(std::size_t line, const std::wstring& what);

    std::vector<std::wstring> files_;
    std::unordered_map<std::wstring, Place> addresses_;
    std::vector<std::wstring> new_;
    std::size_t findings_ = 0;
    std::size_t sites_ = 0;
};

// Whether the text has "?" where letters may have been: two or more that end no word, as in "??? Books" or
// "Caf??s", or one between two letters. "What??" is an ordinary question.
bool seemsToLackLetters(std::wstring_view text);

} // namespace vandrel
