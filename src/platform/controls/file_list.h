#pragma once

#include "platform/controls/list_box.h"

namespace vandrel {

// The sorted names of the files of one kind in a folder.
class FileList : public ListBox {
  public:
    // Shows the files whose names end in `extension`, ignoring case.
    FileList(HWND parent, int id, std::wstring extension);

    std::function<void()> DblClick;

    const std::wstring& path() const { return path_; }
    // A folder that cannot be listed shows no files.
    void setPath(const std::wstring& path);

  protected:
    void opened() override;

  private:
    std::wstring extension_;
    std::wstring path_;
};

} // namespace vandrel
