#include "platform/base/runtime_error.h"

#include <gtest/gtest.h>

#include <utility>

namespace vandrel {
namespace {

TEST(RuntimeError, EveryNumberHasThePlatformsOwnDescription)
{
    const std::pair<int, const wchar_t*> known[] = {
        {6, L"Overflow"},
        {7, L"Out of memory"},
        {13, L"Type mismatch"},
        {51, L"Internal error"},
        {52, L"Bad file name or number"},
        {53, L"File not found"},
        {57, L"Device I/O error"},
        {58, L"File already exists"},
        {61, L"Disk full"},
        {70, L"Permission denied"},
        {71, L"Disk not ready"},
        {75, L"Path/File access error"},
        {76, L"Path not found"},
        {91, L"Object variable or With block variable not set"},
        {461, L"Specified format doesn't match format of data"},
        {32755, L"Cancel was selected."},
        {35761, L"Request timed out"},
    };
    for (const auto& [number, description] : known) {
        EXPECT_EQ(runtimeErrorDescription(number), description) << number;
        EXPECT_EQ(RuntimeError(number).number(), number);
        EXPECT_EQ(RuntimeError(number).description(), description) << number;
    }
}

TEST(RuntimeError, AnUnknownNumberIsAnApplicationDefinedError)
{
    EXPECT_EQ(runtimeErrorDescription(0), L"Application-defined or object-defined error");
    EXPECT_EQ(runtimeErrorDescription(-1), L"Application-defined or object-defined error");
    EXPECT_EQ(RuntimeError(9999).description(), L"Application-defined or object-defined error");
}

TEST(RuntimeError, TheFileDialogsCancelErrorIs32755) { EXPECT_EQ(error_number::cancelled, 32755); }

TEST(RuntimeError, ADescriptionOfItsOwnTakesThePlaceOfThePlatforms)
{
    const RuntimeError error(error_number::fileNotFound, L"No such page");
    EXPECT_EQ(error.number(), 53);
    EXPECT_EQ(error.description(), L"No such page");
}

TEST(RuntimeError, IsCaughtAsAnException)
{
    try {
        throw RuntimeError(error_number::diskFull);
    } catch (const std::exception& failure) {
        EXPECT_STREQ(failure.what(), "run-time error");
    }
}

} // namespace
} // namespace vandrel
