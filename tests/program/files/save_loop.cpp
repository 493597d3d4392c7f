// Saves category files over and over, until it is killed; see durability_test.cpp.
//   save_loop FOLDER EVENT
// Sets the event of that name when it is about to begin.

#include "platform/files/ansi_text_file.h"
#include "platform/files/ansi_text_writer.h"
#include "platform/files/file_layer.h"
#include "platform/text/ansi_text.h"
#include "tests/program/files/versions.h"

#include <windows.h>

#include <vector>

int wmain(int argc, wchar_t** argv)
{
    using namespace vandrel;
    if (argc != 3) return 2;
    const std::wstring folder = argv[1];
    std::vector<std::vector<std::wstring>> versions;
    for (int file = 0; file < 2; ++file) {
        versions.emplace_back();
        for (int version = 0; version < test::versionCount; ++version)
            versions.back().push_back(decodeAnsi(test::versionOf(file, version)));
    }
    const HANDLE begun = OpenEventW(EVENT_MODIFY_STATE, FALSE, argv[2]);
    if (begun == nullptr) return 3;
    SetEvent(begun);
    for (std::size_t round = 0;; ++round) {
        for (std::size_t file = 0; file < 2; ++file) {
            const std::wstring& text = versions[file][(round + file) % test::versionCount];
            AnsiTextFile(folder + L"\\" + test::savedFiles[file])
                .write([&](AnsiTextWriter& saved) { saved.add(text); }, systemFiles());
        }
    }
}
