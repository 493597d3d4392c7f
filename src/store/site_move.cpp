#include "store/site_move.h"

#include "model/site_columns.h"
#include "platform/base/runtime_error.h"
#include "platform/controls/list_view.h"
#include "platform/controls/menu.h"
#include "platform/files/ansi_text_file.h"
#include "shared/workspace.h"
#include "store/category_file.h"
#include "store/category_list.h"

#include <exception>
#include <optional>

namespace vandrel {
namespace {

std::optional<std::size_t> categoryOfTitle(const ListView& categories, const std::wstring& title)
{
    for (std::size_t row = 0; row < categories.count(); ++row) {
        if (categories.text(row) == title) return row;
    }
    return std::nullopt;
}

// The category file as it was, to be put back when what follows its change fails.
class FileBefore {
  public:
    explicit FileBefore(std::wstring path) : path_(std::move(path)), bytes_(fileBytes(path_)) {}

    // Failing that, the site is in both files: better than in none.
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

// The target first: a site must not be in none of the two files, whatever happens between the two saves.
void moveBetween(const std::wstring& folder, const std::wstring& source, const std::wstring& target,
                 std::span<const ListRows::Row> left, const ListRows::Row& site)
{
    const CategorySites taking = readCategory(folder, target, {&site, 1});
    const FileBefore before(categoryPath(folder, target));
    writeCategory(folder, target, taking.rows, systemFiles());
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
    const std::span<const ListRows::Row> all = workspace.lstInfo.rows().all();
    std::vector<ListRows::Row> left(all.begin(), all.end());
    ListRows::Row moved = left[site];
    moved.texts[dateColumn] = {};
    moved.image = siteImage;
    left.erase(left.begin() + static_cast<std::ptrdiff_t>(site));

    const std::wstring& folder = workspace.dataFolder;
    // Two titles may be one file: the same title twice, or in other letter case.
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
    ListView& categories = workspace.lstCategory;
    const auto site = workspace.lstInfo.currentRow();
    const auto source = shownRow(workspace);
    const auto target = categoryOfTitle(categories, workspace.mnuMove.caption(index));
    if (!site || !source || !target) return;
    if (workspace.shown.unreadable) throw RuntimeError(error_number::permissionDenied);
    moveOnDisk(workspace, *site, categories.text(*source), categories.text(*target));
    try {
        showCategory(workspace, *target);
        categories.ensureVisible(*target);
    } catch (...) {
        // The list still has the site, and must not be saved with it.
        workspace.lstInfo.clear();
        workspace.shown.unreadable = true;
        throw;
    }
}

} // namespace vandrel
