#pragma once

#include "platform/controls/list_box.h"

namespace vandrel {

// The names of the files of one kind in a folder, sorted.
class FileList : public ListBox {
  public:
    // Shows the files whose names end with `extension`, in whatever case.
    FileList(HWND parent, int id, std::wstring extension);

    std::function<void()> DblClick;

    const std::wstring& path() const { return path_; }
    // A folder that cannot be listed has no files.
    void setPath(const std::wstring& path);

  protected:
    void opened() override;

  private:
    std::wstring extension_;
    std::wstring path_;
};

} // namespace vandrel
