#include "platform/text/simd.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace vandrel {
namespace {

constexpr auto largestUnit = static_cast<wchar_t>(std::numeric_limits<TextUnit>::max());

// The letters around which a comparison may go wrong: signs, halves, the ends of the range.
const std::wstring edges = {L'\0',
                            L'\r',
                            L'\x7F',
                            L'\x80',
                            L'\xFF',
                            L'\x100',
                            L'\x7FFF',
                            static_cast<wchar_t>(0x8000),
                            static_cast<wchar_t>(0xFF7F),
                            largestUnit};

template <typename Units> class Simd : public testing::Test {
  protected:
    // The place that a comparison names in a text of `filling` with one other unit at `place`.
    template <typename Compare>
    static std::size_t found(std::size_t place, wchar_t unit, wchar_t filling, Compare compare)
    {
        std::wstring text(unitsInVector + 1, filling);
        text[place + 1] = unit;
        return compare(Units::load(text.data() + 1)).first(); // one unit off, so at no round address
    }
};

using EveryForm = testing::Types<PlainUnits, UnitVector>;
TYPED_TEST_SUITE(Simd, EveryForm);

TYPED_TEST(Simd, EqualNamesTheFirstUnitThatIsTheSame)
{
    for (std::size_t place = 0; place < unitsInVector; ++place) {
        for (const wchar_t unit : edges) {
            for (const wchar_t filling : edges) {
                const auto isUnit = [&](TypeParam units) { return units.equal(TypeParam::all(unit)); };
                EXPECT_EQ(this->found(place, unit, filling, isUnit), unit == filling ? 0 : place)
                    << static_cast<TextUnit>(unit) << " among " << static_cast<TextUnit>(filling);
            }
        }
    }
}

TYPED_TEST(Simd, AtMostTakesUnitsForNumbersWithoutSign)
{
    for (const wchar_t unit : edges) {
        for (const wchar_t limit : edges) {
            const auto small = [&](TypeParam units) { return units.atMost(TypeParam::all(limit)); };
            const bool isSmall = static_cast<TextUnit>(unit) <= static_cast<TextUnit>(limit);
            EXPECT_EQ(this->found(0, unit, unit, small), isSmall ? 0 : unitsInVector)
                << static_cast<TextUnit>(unit) << " and " << static_cast<TextUnit>(limit);
        }
    }
}

TYPED_TEST(Simd, FirstIsTheNumberOfUnitsWhereNoneIsFound)
{
    const auto isQ = [](TypeParam units) { return units.equal(TypeParam::all(L'q')); };
    EXPECT_EQ(this->found(0, L'a', L'a', isQ), unitsInVector);
}

TYPED_TEST(Simd, ComparisonsAreJoined)
{
    const auto a = TypeParam::all(L'a');
    const auto b = TypeParam::all(L'b');
    const auto either = [&](TypeParam units) { return units.equal(a) | units.equal(b); };
    const auto both = [&](TypeParam units) { return units.equal(a) & units.atMost(b); };
    EXPECT_EQ(this->found(2, L'b', L'c', either), 2U);
    EXPECT_EQ(this->found(1, L'a', L'b', both), 1U);
    EXPECT_EQ(this->found(1, L'b', L'b', both), unitsInVector);
}

TYPED_TEST(Simd, AsciiIsWidenedAndNothingElse)
{
    for (std::size_t place = 0; place < unitsInVector; ++place) {
        for (int byte = 0; byte < 0x100; ++byte) {
            std::string bytes(unitsInVector, 'x');
            bytes[place] = static_cast<char>(byte);
            std::wstring text(unitsInVector, L'?');
            EXPECT_EQ(TypeParam::widenAscii(bytes.data(), text.data()), byte < 0x80);
            if (byte < 0x80) EXPECT_EQ(text, std::wstring(bytes.begin(), bytes.end()));
            else EXPECT_EQ(text, std::wstring(unitsInVector, L'?'));
        }
    }
}

TYPED_TEST(Simd, AsciiIsNarrowedAndNothingElse)
{
    for (std::size_t place = 0; place < unitsInVector; ++place) {
        for (const wchar_t unit : edges) {
            std::wstring text(unitsInVector, L'x');
            text[place] = unit;
            std::string bytes(unitsInVector, '?');
            const bool ascii = static_cast<TextUnit>(unit) < 0x80;
            EXPECT_EQ(TypeParam::narrowAscii(text.data(), bytes.data()), ascii);
            if (ascii) EXPECT_EQ(std::wstring(bytes.begin(), bytes.end()), text);
            else EXPECT_EQ(bytes, std::string(unitsInVector, '?'));
        }
    }
}

} // namespace
} // namespace vandrel
