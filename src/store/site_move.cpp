#include "store/site_move.h"

#include "platform/base/runtime_error.h"
#include "platform/controls/list_view.h"
#include "platform/controls/menu.h"
#include "platform/files/file_bytes.h"
#include "platform/files/file_layer.h"
#include "shared/workspace.h"
#include "store/category_file.h"
#include "store/category_list.h"

#include <exception>
#include <optional>

namespace vandrel {
namespace {

std::optional<std::size_t> categoryOfTitle(const RowTable& categories, const std::wstring& title)
{
    for (std::size_t row = 0; row < categories.size(); ++row) {
        // Contract: of two categories with one title, the first.
        if (categories.text(row, 0) == title) return row;
    }
    return std::nullopt;
}

// A category file's old content, to put back if a later step fails.
class FileBefore {
  public:
    explicit FileBefore(std::wstring path) : path_(std::move(path)), bytes_(fileBytes(path_)) {}

    // If this fails as well, the site is in both files, which is better than in neither.
    void putBack() const noexcept
    {
        try {
            if (bytes_) replaceFile(path_, *bytes_);
            else removeFile(path_);
        } catch (const std::exception&) {}
    }

  private:
    std::wstring path_;
    std::optional<std::string> bytes_; // none when there was no file
};

// The target first: whatever happens between the two saves, the site must be in at least one file.
void moveBetween(const std::wstring& folder, const std::wstring& source, const std::wstring& target,
                 std::span<const RowTable::Row> left, const RowTable::Row& site)
{
    Category taking = readCategory(folder, target);
    taking.sites.addCopies({&site, 1});
    const FileBefore before(categoryPath(folder, target));
    writeCategory(folder, target, taking.sites.all(), systemFiles());
    try {
        writeCategory(folder, source, left, systemFiles());
    } catch (...) {
        before.putBack();
        throw;
    }
}

void moveOnDisk(const Workspace& workspace, std::size_t site, const std::wstring& source,
                const std::wstring& target)
{
    const std::span<const RowTable::Row> all = workspace.shown.sites.all();
    std::vector<RowTable::Row> left(all.begin(), all.end());
    RowTable::Row moved = left[site];
    // Contract: the date is not carried over.
    moved.texts.clearLast();
    moved.image = siteImage;
    left.erase(left.begin() + static_cast<std::ptrdiff_t>(site));

    const std::wstring& folder = workspace.dataFolder;
    // Two titles may mean one file: the same title twice, or titles that differ only in letter case.
    if (source == target || isSameFile(categoryPath(folder, source), categoryPath(folder, target))) {
        left.push_back(moved);
        writeCategory(folder, source, left, systemFiles());
    } else {
        moveBetween(folder, source, target, left, moved);
    }
}

} // namespace

void mnuMove_Click(Workspace& workspace, std::size_t index)
{
    // Contract: only the current site moves, even if several are selected.
    const auto site = workspace.lstInfo.currentRow();
    const auto source = shownRow(workspace);
    const auto target = categoryOfTitle(workspace.categories, workspace.mnuMove.caption(index));
    if (!site || !source || !target) return;
    if (workspace.shown.unreadable()) throw RuntimeError(error_number::permissionDenied);
    moveOnDisk(workspace, *site, titleOf(workspace, *source), titleOf(workspace, *target));
    try {
        showCategory(workspace, *target);
        workspace.lstCategory.ensureVisible(*target);
    } catch (...) {
        // The list still has the moved site, and must not be saved with it.
        workspace.shown.sites.clear();
        workspace.shown.reading = Reading::unreadable;
        throw;
    }
}

} // namespace vandrel
