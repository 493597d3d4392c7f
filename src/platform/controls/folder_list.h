#pragma once

#include "platform/controls/image_list.h"
#include "platform/controls/list_box.h"

namespace vandrel {

// The folders from the drive down to a folder, and its subfolders. A double click or Enter opens the
// selected folder, Backspace the parent.
class FolderList : public ListBox {
  public:
    FolderList(HWND parent, int id);

    std::function<void()> Change; // the list shows another folder now

    const std::wstring& path() const { return path_; } // ends with a backslash only for a drive
    // Throws RuntimeError (71, 76) and leaves the list unchanged if there is no such folder or it cannot be
    // read.
    void setPath(const std::wstring& path);

    void onDrawItem(const DRAWITEMSTRUCT& item) override;

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void opened() override;
    void applyFont() override;
    int indent(std::size_t entry) const override;

  private:
    struct Folder {
        std::wstring path;
        std::size_t depth;
        bool open;
    };
    void openParent();

    std::wstring path_;
    std::vector<Folder> folders_;
    ImageListHandle images_; // closed, open
};

} // namespace vandrel
