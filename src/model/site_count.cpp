#include "model/site_count.h"

#include "model/site_record.h"
#include "platform/text/simd_bytes.h"

#include <array>
#include <bit>
#include <cstring>

namespace vandrel {
namespace {

constexpr std::size_t blockSize = 64; // as many bytes as a mask has bits

// A bit for each byte of a block, the lowest for the first.
struct Masks {
    std::uint64_t separators = 0;
    std::uint64_t lineFeeds = 0;
};

Masks masksOf(const char* block)
{
    const ByteVector separator = ByteVector::all('|');
    const ByteVector lineFeed = ByteVector::all('\n');
    Masks masks;
    for (std::size_t at = 0; at < blockSize; at += bytesInVector) {
        const ByteVector bytes = ByteVector::load(block + at);
        masks.separators |= std::uint64_t{bytes.equal(separator).mask()} << at;
        masks.lineFeeds |= std::uint64_t{bytes.equal(lineFeed).mask()} << at;
    }
    return masks;
}

class SiteCounter {
  public:
    explicit SiteCounter(std::string_view lines) : lines_(lines) {}

    std::size_t count()
    {
        std::size_t at = 0;
        for (; lines_.size() - at >= blockSize; at += blockSize) takeBlock(masksOf(lines_.data() + at), at);
        if (at < lines_.size()) {
            std::array<char, blockSize> rest{};
            std::memcpy(rest.data(), lines_.data() + at, lines_.size() - at);
            takeBlock(masksOf(rest.data()), at);
        }
        if (lineBegin_ < lines_.size()) endLine(lines_.size());
        return sites_;
    }

  private:
    void takeBlock(const Masks& masks, std::size_t at)
    {
        std::uint64_t separators = masks.separators;
        for (std::uint64_t ends = masks.lineFeeds; ends != 0; ends &= ends - 1) {
            const auto bit = static_cast<std::size_t>(std::countr_zero(ends));
            const std::size_t place = at + bit;
            if (place == 0 || lines_[place - 1] != '\r') continue;
            const std::uint64_t before = (std::uint64_t{1} << bit) - 1;
            addSeparators(separators & before);
            separators &= ~before;
            endLine(place + 1);
        }
        addSeparators(separators);
    }

    void addSeparators(std::uint64_t bits)
    {
        for (; bits != 0; bits &= bits - 1) ++separators_; // three in a line, as a rule
    }

    // Only where a line is a comment or has more than four pieces does it matter whether a CR or LF stands
    // alone in it.
    void endLine(std::size_t end)
    {
        if (lines_[lineBegin_] == ';' || separators_ > 3) {
            BasicSiteRecordReader<char> reader(lines_.substr(lineBegin_, end - lineBegin_));
            while (reader.next()) ++sites_;
        } else if (separators_ > 0) {
            ++sites_;
        }
        lineBegin_ = end;
        separators_ = 0;
    }

    std::string_view lines_;
    std::size_t sites_ = 0;
    std::size_t lineBegin_ = 0;
    std::size_t separators_ = 0; // of the line so far
};

} // namespace

std::size_t countSites(std::string_view lines) { return SiteCounter(lines).count(); }

} // namespace vandrel
