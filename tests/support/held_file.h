#pragma once

#include "platform/base/handle.h"
#include "tests/support/test_clock.h"

#include <gtest/gtest.h>

#include <string>

namespace vandrel::test {

// A file that another program has open, exclusively unless `share` says otherwise. While it is held, the
// program's sleep takes no time.
class HeldFile {
  public:
    explicit HeldFile(const std::wstring& path, DWORD share = 0)
        : file_(CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr))
    {
        EXPECT_TRUE(file_);
    }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

    void release() { file_.reset(); }
    // Releases the file as soon as the program has slept for this long.
    void releaseAfterSleeping(ULONGLONG milliseconds)
    {
        clock_.afterSleeping(milliseconds, [this] { release(); });
    }
    bool isReleased() const { return !file_; }
    // How long the program has slept since the file was opened, in milliseconds.
    ULONGLONG slept() const { return clock_.slept(); }

  private:
    TestClock clock_;
    FileHandle file_;
};

} // namespace vandrel::test
