#pragma once

#include "platform/controls/drive_list.h"
#include "platform/controls/file_list.h"
#include "platform/controls/folder_list.h"
#include "platform/controls/simple_controls.h"
#include "platform/windows/dialog.h"
#include "store/site_operations.h"

namespace vandrel {

struct Workspace;

// Browses drives and folders for shortcut files and adds one of them, or all of a folder, to the current
// category.
class frmImport : public Dialog {
  public:
    // Loads the dialog, at the user's Favorites folder.
    explicit frmImport(Workspace& workspace);

    std::vector<Control*> controls() override;

  protected:
    void layOut() override;
    void onOk() override { cmdImport_Click(); }
    void onCancel() override { cmdCancel_Click(); }

  private:
    void Form_Load();
    void drvImport_Change();
    void dirImport_Change();
    void filImport_Click();
    void cmdImport_Click();
    void cmdImportAll_Click();
    void cmdCancel_Click();

    void showFavorites();
    // False when there is no category and the user made none; the site then stays in the list, unsaved.
    bool importSelected(std::size_t file);
    bool importEvery();
    bool addNewSite(decltype(addSite)& add);
    void takeShortcut(const std::wstring& fileName);
    void tellOutcome(bool imported);
    void setBusy(const std::vector<Control*>& all, bool busy);

    Workspace& workspace_;
    std::wstring previousDrive_; // the last one that could be read
    bool busy_ = false;          // all files of the folder are being imported
    // In tab order; each label comes before its list.
    Label lblDrive_;
    DriveList drvImport_;
    Label lblFolder_;
    FolderList dirImport_;
    Label lblFiles_;
    FileList filImport_;
    Button cmdImport_;
    Button cmdImportAll_;
    Button cmdCancel_;
    Label lblPath_;
    ProgressBar prgImport_;
};

void Import(Workspace& workspace);
void mnuImport_Click(Workspace& workspace);

} // namespace vandrel
