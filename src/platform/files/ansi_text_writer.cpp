#include "platform/files/ansi_text_writer.h"

#include "platform/text/ansi_text.h"

#include <algorithm>
#include <array>

namespace vandrel {
namespace {

constexpr std::size_t usualRoom = 256U << 10;
constexpr std::size_t unitsAtOnce = 64U << 10;
constexpr std::size_t gatheredUnits = 16U << 10;

// The end of a part that can be encoded on its own: after an ASCII character, because units outside ASCII
// may belong together.
std::size_t endOfPart(std::wstring_view text)
{
    const auto isAscii = [](wchar_t unit) { return unit < 0x80; };
    if (text.size() <= unitsAtOnce) return text.size();
    const auto middle = text.begin() + unitsAtOnce;
    const auto last = std::find_if(std::make_reverse_iterator(middle), text.rend(), isAscii).base();
    if (last != text.begin()) return static_cast<std::size_t>(last - text.begin());
    const auto first = std::find_if(middle, text.end(), isAscii);
    return static_cast<std::size_t>(first - text.begin());
}

} // namespace

AnsiTextWriter::AnsiTextWriter(const WritePart& write)
    : write_(write),
      latin_(latinInAnsi()),
      gathered_(std::make_unique_for_overwrite<wchar_t[]>(gatheredUnits))
{
    makeRoom(usualRoom);
}

bool AnsiTextWriter::add(const CompactText& piece)
{
    if (piece.empty()) return good_;
    return piece.isLatin() ? addLatin(piece.latin()) : addWide(piece.wide());
}

bool AnsiTextWriter::addWide(std::wstring_view piece)
{
    if (gather(piece)) return good_;
    encodeWaiting(piece.front());
    if (!gather(piece)) waiting_ = piece;
    return good_;
}

bool AnsiTextWriter::addLatin(std::string_view piece)
{
    if (!waiting_.empty()) encodeWaiting(static_cast<unsigned char>(piece.front()));
    while (!piece.empty() && good_) {
        if (used_ == room_) writeOut();
        const std::string_view part = piece.substr(0, room_ - used_);
        const std::size_t same = latin_.copyPrefix(part, bytes_.get() + used_);
        used_ += same;
        piece.remove_prefix(same);
        if (same == part.size()) continue;
        // No letter of Latin-1 is encoded differently for its neighbours.
        std::array<wchar_t, 64> letters{};
        const std::size_t others = CompactText::ofLatin(piece).copy(letters.data(), letters.size());
        encode({letters.data(), others}, L'\0');
        piece.remove_prefix(others);
    }
    return good_;
}

// False if it is too long to be gathered with those before.
bool AnsiTextWriter::gather(std::wstring_view piece)
{
    if (!waiting_.empty() && waiting_.data() != gathered_.get()) return false;
    if (piece.size() > gatheredUnits - waiting_.size()) return false;
    // Not std::ranges::copy, which GCC 12 turns into a loop of single units.
    piece.copy(gathered_.get() + waiting_.size(), piece.size());
    waiting_ = {gathered_.get(), waiting_.size() + piece.size()};
    return true;
}

bool AnsiTextWriter::end()
{
    encodeWaiting(L'\0');
    writeOut();
    return good_;
}

void AnsiTextWriter::encodeWaiting(wchar_t behind)
{
    encode(waiting_, behind);
    waiting_ = {};
}

void AnsiTextWriter::encode(std::wstring_view text, wchar_t behind)
{
    while (!text.empty() && good_) {
        const std::wstring_view part = text.substr(0, endOfPart(text));
        text.remove_prefix(part.size());
        makeRoom(mostAnsiBytes(part.size()));
        char* const start = bytes_.get() + used_;
        used_ += static_cast<std::size_t>(encodeAnsi(part, start, text.empty() ? behind : text.front()) -
                                          start);
    }
}

void AnsiTextWriter::makeRoom(std::size_t bytes)
{
    if (room_ - used_ >= bytes) return;
    writeOut();
    if (room_ >= bytes) return;
    bytes_ = std::make_unique_for_overwrite<char[]>(bytes);
    room_ = bytes;
}

void AnsiTextWriter::writeOut()
{
    if (used_ > 0) good_ = good_ && write_({bytes_.get(), used_});
    used_ = 0;
}

} // namespace vandrel
