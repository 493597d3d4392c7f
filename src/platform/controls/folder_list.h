#pragma once

#include "platform/controls/image_list.h"
#include "platform/controls/list_box.h"

namespace vandrel {

// The folders on the way from the drive to a folder, and its subfolders. Double click and Enter open the
// selected one, Backspace the one above.
class FolderList : public ListBox {
  public:
    FolderList(HWND parent, int id);

    std::function<void()> Change; // the list shows another folder

    const std::wstring& path() const { return path_; } // without a backslash at its end, a drive's excepted
    // Throws RuntimeError (71, 76) when there is no such folder to be read; the list stays as it was then.
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
