#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "core/app_state.h"
#include "platform/controls/form.h"
#include "platform/controls/list_box.h"
#include "platform/controls/menu.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/timer.h"
#include "platform/controls/tree_view.h"
#include "windows/image_picker/folder_tree.h"
#include "windows/platform_services.h"

namespace Morvane {

// The image picker: a folder tree, the pictures of a folder and a preview. It leaves the chosen path in
// ImmagineScelta. OK hides it, so that it comes back as it was; Cancel and the title bar unload it.
class frmAbout {
 public:
  // `loadContentsWindow` loads the contents window, hidden, unless it is loaded; called once, at load.
  frmAbout(AppState& state, Platform& platform, std::function<void()> loadContentsWindow);

  Form form;
  Label lblPath{form, "lblPath"};
  TreeView tvwdirtree{form, "tvwdirtree"};
  CommandButton Command4{form, "Command4"};
  Label Label17{form, "Label17"};
  ListBox List1{form, "List1"};
  CommandButton Command1{form, "Command1"};
  CommandButton Command2{form, "Command2"};
  Frame Frame1{form, "Frame1"};
  ImageBox Image1{Frame1, "Image1"};
  Timer TimerCartelle{form, "TimerCartelle"};    // looks into the folders of the tree
  Timer TimerAnteprima{form, "TimerAnteprima"};  // loads the preview
  std::vector<MenuItem> Menudestro;

 private:
  void ConnectTree();
  void ConnectList();
  void ConnectButtons();
  void BuildMenudestro();

  void Form_Load();
  void Form_Activate();
  void tvwdirtree_Expand(TreeNode& node);
  void tvwdirtree_Collapse(TreeNode& node) { tvwdirtree_NodeClick(node); }
  void tvwdirtree_NodeClick(TreeNode& node);
  void tvwdirtree_Click();
  void Command4_Click();
  void TimerCartelle_Tick();
  void List1_Click();
  void List1_DblClick() { Command1_Click(); }
  void TimerAnteprima_Tick();
  void List1_KeyDown(int keyCode);
  void List1_MouseDown(MouseButton button);
  void MenuRinomina_Click();
  void menuCancellaFile_Click();
  void Image1_Click() { Command1_Click(); }
  void Command1_Click();
  void Command2_Click();

  bool KillStubbornly(const std::string& name);
  void ReadOnePerClick(const TreeNode& node);
  void ReadFolders(const TreeNode& node);
  std::string FolderOfLabel() const;
  void ResetPointer();

  AppState& state_;
  Platform& platform_;
  std::function<void()> loadContentsWindow_;
  std::deque<UnreadFolder> unread_;
};

}  // namespace Morvane
