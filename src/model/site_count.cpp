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
    std::uint64_t returns = 0;   // CR
    std::uint64_t lineFeeds = 0; // LF
};

Masks masksOf(const char* block)
{
    const ByteVector separator = ByteVector::all('|');
    const ByteVector carriageReturn = ByteVector::all('\r');
    const ByteVector lineFeed = ByteVector::all('\n');
    Masks masks;
    for (std::size_t at = 0; at < blockSize; at += bytesInVector) {
        const ByteVector bytes = ByteVector::load(block + at);
        masks.separators |= std::uint64_t{bytes.equal(separator).mask()} << at;
        masks.returns |= std::uint64_t{bytes.equal(carriageReturn).mask()} << at;
        masks.lineFeeds |= std::uint64_t{bytes.equal(lineFeed).mask()} << at;
    }
    return masks;
}

// The bits below that one.
std::uint64_t below(int bit) { return bit == 0 ? 0 : ~std::uint64_t{} >> (64 - bit); }

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
        loneLineEnd_ = loneLineEnd_ || endsInReturn_;
        if (lineBegin_ < lines_.size()) endLine(lines_.size());
        return sites_;
    }

  private:
    void takeBlock(const Masks& masks, std::size_t at)
    {
        const std::uint64_t behindReturn = masks.returns << 1 | (endsInReturn_ ? 1 : 0);
        const std::uint64_t lineEnds = masks.lineFeeds & behindReturn;
        // A CR as the last byte is judged with the next block.
        const std::uint64_t loneReturns = masks.returns & ~(lineEnds >> 1) & below(63);
        loneLineEnd_ = loneLineEnd_ || (endsInReturn_ && (lineEnds & 1) == 0);
        endsInReturn_ = (masks.returns >> 63) != 0;
        const std::uint64_t loneEnds = loneReturns | (masks.lineFeeds & ~behindReturn);
        std::uint64_t separators = masks.separators;
        for (std::uint64_t events = lineEnds | loneEnds; events != 0; events &= events - 1) {
            const int bit = std::countr_zero(events);
            if ((lineEnds >> bit & 1) == 0) {
                loneLineEnd_ = true;
                continue;
            }
            separated_ = separated_ || (separators & below(bit)) != 0;
            separators &= ~below(bit);
            endLine(at + static_cast<std::size_t>(bit) + 1);
        }
        separated_ = separated_ || separators != 0;
    }

    void endLine(std::size_t end)
    {
        if (loneLineEnd_) {
            BasicSiteRecordReader<char> reader(lines_.substr(lineBegin_, end - lineBegin_));
            while (reader.next()) ++sites_;
        } else if (separated_ && lines_[lineBegin_] != ';') {
            ++sites_;
        }
        lineBegin_ = end;
        separated_ = loneLineEnd_ = false;
    }

    std::string_view lines_;
    std::size_t sites_ = 0;
    std::size_t lineBegin_ = 0;
    bool separated_ = false;    // the line so far has a separator
    bool loneLineEnd_ = false;  // and a CR or LF that ends no line
    bool endsInReturn_ = false; // the last block did
};

} // namespace

std::size_t countSites(std::string_view lines) { return SiteCounter(lines).count(); }

} // namespace vandrel
