#include "platform/controls/folder_list.h"

#include "platform/files/folder.h"
#include "platform/files/full_path.h"

#include <commctrl.h>

#include <algorithm>

namespace vandrel {
namespace {

constexpr Twips pictureSize{240};
constexpr Twips gap{60};
constexpr std::array folderPictures{L"folder", L"folder-open"};
constexpr int closedPicture = 0;
constexpr int openPicture = 1;

// The part of a full path that is not a folder name: "C:\" or "\\server\share\".
std::size_t rootLength(const std::wstring& path)
{
    if (!path.starts_with(L"\\\\")) return std::min<std::size_t>(3, path.size());
    const std::size_t share = path.find(L'\\', path.find(L'\\', 2) + 1);
    return share == std::wstring::npos ? path.size() : share + 1;
}

std::wstring inFolder(const std::wstring& folder, const std::wstring& name)
{
    return folder.ends_with(L'\\') ? folder + name : folder + L'\\' + name;
}

} // namespace

FolderList::FolderList(HWND parent, int id) : ListBox(parent, id, LBS_OWNERDRAWFIXED) {}

void FolderList::setPath(const std::wstring& path)
{
    std::wstring full = fullPath(path);
    const std::size_t root = rootLength(full);
    while (full.size() > root && full.ends_with(L'\\')) full.pop_back();
    requireFolder(full);
    std::vector<std::wstring> names = folderNamesIn(full);
    sortNames(names);

    std::vector<Folder> folders;
    std::vector<std::wstring> texts;
    const auto add = [&](const std::wstring& folder, const std::wstring& text, std::size_t depth, bool open) {
        folders.push_back({folder, depth, open});
        texts.push_back(text);
    };
    std::size_t end = std::min(root, full.size());
    std::size_t depth = 0;
    add(full.substr(0, end), full.substr(0, end), depth, true);
    while (end < full.size()) {
        const std::size_t start = end;
        end = std::min(full.find(L'\\', start), full.size());
        add(full.substr(0, end), full.substr(start, end - start), ++depth, true);
        if (end < full.size()) ++end;
    }
    const std::size_t current = folders.size() - 1;
    for (const std::wstring& name : names) add(inFolder(full, name), name, depth + 1, false);

    path_ = full;
    folders_ = std::move(folders);
    fill(texts);
    select(current);
    if (Change) Change();
}

void FolderList::opened()
{
    if (const auto entry = selected()) setPath(std::wstring(folders_[*entry].path));
}

void FolderList::openParent()
{
    if (const auto root = rootLength(path_); path_.size() > root) {
        setPath(path_.substr(0, std::max(path_.rfind(L'\\'), root)));
    }
}

LRESULT FolderList::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_GETDLGCODE) {
        // Otherwise Enter would press the dialog's default button.
        const auto* const key = reinterpret_cast<const MSG*>(lParam);
        const LRESULT code = ListBox::onMessage(message, wParam, lParam);
        return key != nullptr && key->wParam == VK_RETURN ? code | DLGC_WANTMESSAGE : code;
    }
    if (message == WM_KEYDOWN && (wParam == VK_RETURN || wParam == VK_BACK)) {
        if (wParam == VK_RETURN) opened();
        if (wParam == VK_BACK) openParent();
        return 0;
    }
    return ListBox::onMessage(message, wParam, lParam);
}

void FolderList::applyFont()
{
    images_ = loadImages(folderPictures, pixels(pictureSize));
    ListBox::applyFont();
    const int height = std::max<int>(sizeOf(L"X").cy, pixels(pictureSize)) + pixels(30_twips);
    SendMessageW(handle(), LB_SETITEMHEIGHT, 0, height);
}

int FolderList::indent(std::size_t entry) const
{
    const int step = pixels(pictureSize) / 2;
    return static_cast<int>(folders_[entry].depth) * step + pixels(pictureSize) + 3 * pixels(gap);
}

void FolderList::onDrawItem(const DRAWITEMSTRUCT& item)
{
    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    if (item.itemID < folders_.size()) {
        const int textLeft = item.rcItem.left + indent(item.itemID) - pixels(gap);
        const int height = item.rcItem.bottom - item.rcItem.top;
        ImageList_Draw(images_.get(), folders_[item.itemID].open ? openPicture : closedPicture, item.hDC,
                       textLeft - pixels(gap) - pixels(pictureSize),
                       item.rcItem.top + (height - pixels(pictureSize)) / 2, ILD_TRANSPARENT);
        SetBkMode(item.hDC, TRANSPARENT);
        SetTextColor(item.hDC, selected           ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                               : foreColor() != 0 ? foreColor()
                                                  : GetSysColor(COLOR_WINDOWTEXT));
        RECT area = item.rcItem;
        area.left = textLeft;
        const std::wstring name = text(item.itemID);
        DrawTextW(item.hDC, name.c_str(), static_cast<int>(name.size()), &area,
                  DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
    if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &item.rcItem);
}

} // namespace vandrel
