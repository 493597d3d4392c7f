#include "platform/text/compact_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace vandrel {
namespace {

using namespace std::literals;

// A text and, if it has no other letters, the same in Latin-1; both in memory that ends where they end, so that
// reading beyond them is detected.
class Both {
  public:
    explicit Both(std::wstring_view text) : wide_(text.begin(), text.end()), latin_(text.size())
    {
        wide_.shrink_to_fit();
        latin_.shrink_to_fit();
        if (wide().fitsLatin()) wide().copyLatin(latin_.data());
    }
    CompactText wide() const { return std::wstring_view(wide_.data(), wide_.size()); }
    CompactText latin() const { return CompactText::ofLatin({latin_.data(), latin_.size()}); }
    std::vector<CompactText> forms() const
    {
        return wide().fitsLatin() ? std::vector{wide(), latin()} : std::vector{wide()};
    }

  private:
    std::vector<wchar_t> wide_;
    std::vector<char> latin_;
};

std::wstring randomText(std::mt19937& random)
{
    constexpr std::wstring_view letters = L"ab\0\x7F\x80\xFE\xFF\u0100\u20AC\uFFFF"sv;
    const std::size_t used = random() % 2 == 0 ? letters.size() : 7;
    std::wstring text(random() % 40, L'\0');
    for (wchar_t& letter : text) letter = letters[random() % used];
    return text;
}

int sign(int order) { return order == 0 ? 0 : (order < 0 ? -1 : 1); }

TEST(CompactTexts, AreEmptyAtFirst)
{
    const CompactText text;
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.data(), nullptr);
    EXPECT_EQ(text, L"");
    EXPECT_EQ(std::wstring(text), L"");
}

TEST(CompactTexts, AreViews)
{
    const std::wstring wide = L"news";
    const std::string latin = "caf\xE9";
    EXPECT_FALSE(CompactText(wide).isLatin());
    EXPECT_EQ(CompactText(wide).data(), wide.data());
    EXPECT_TRUE(CompactText::ofLatin(latin).isLatin());
    EXPECT_EQ(CompactText::ofLatin(latin).data(), latin.data());
    EXPECT_EQ(CompactText::ofLatin(latin), L"caf\u00E9");
    EXPECT_EQ(CompactText::ofLatin(latin)[3], L'\u00E9');
}

TEST(CompactTexts, AreTheSameInBothForms)
{
    std::mt19937 random(1);
    for (int round = 0; round < 5'000; ++round) {
        const std::wstring text = randomText(random);
        const Both both(text);
        std::wstring memory = L"what was there before";
        for (const CompactText& form : both.forms()) {
            ASSERT_EQ(form.size(), text.size());
            ASSERT_EQ(std::wstring(form), text);
            ASSERT_EQ(form.wideIn(memory), text);
            std::wstring more = L"|";
            more += form;
            ASSERT_EQ(more, L"|" + text);
            const std::size_t most = random() % 45;
            std::vector<wchar_t> copy(std::min(most, text.size()));
            ASSERT_EQ(form.copy(copy.data(), most), copy.size());
            ASSERT_EQ(std::wstring(copy.begin(), copy.end()), text.substr(0, most));
            const std::size_t from = random() % (text.size() + 1);
            ASSERT_EQ(form.substr(from, most), text.substr(from, most));
            ASSERT_EQ(form.substr(from).isLatin(), form.isLatin());
        }
    }
}

TEST(CompactTexts, CompareByUnitsInWhicheverForms)
{
    std::mt19937 random(2);
    int equal = 0;
    for (int round = 0; round < 20'000; ++round) {
        const std::wstring first = randomText(random);
        std::wstring second = random() % 2 == 0 ? first.substr(0, random() % 40) : randomText(random);
        if (random() % 2 == 0) second = first.substr(0, random() % 4) + second;
        if (random() % 4 == 0 && !first.empty()) {
            second = first;
            second[random() % second.size()] = L'\xFF';
        }
        const Both a(first);
        const Both b(second);
        equal += first == second ? 1 : 0;
        for (const CompactText& one : a.forms()) {
            for (const CompactText& other : b.forms()) {
                ASSERT_EQ(one == other, first == second);
                ASSERT_EQ(sign(one.compare(other)), sign(first.compare(second)));
            }
        }
    }
    EXPECT_GT(equal, 100);
}

TEST(CompactTexts, FitLatin1UpToTheLetter255)
{
    EXPECT_TRUE(CompactText(L"").fitsLatin());
    EXPECT_TRUE(CompactText(L"\u00FF").fitsLatin());
    EXPECT_FALSE(CompactText(L"ab\u0100").fitsLatin());
    EXPECT_FALSE(CompactText(L"\uFFFF").fitsLatin());
    EXPECT_TRUE(CompactText::ofLatin("\xFF").fitsLatin());
}

} // namespace
} // namespace vandrel
