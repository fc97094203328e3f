#pragma once

#include <QObject>
#include <QTranslator>
#include <string>
#include <vector>

#include "platform/controls/window_system.h"
#include "platform/files/file_system.h"
#include "platform/qt/desktop/toolkit_gaps.h"
#include "platform/qt/painting/drawing_painter.h"
#include "platform/qt/views/form_view.h"

namespace Morvane {

// Windows, boxes and events of the desktop, in Italian. Made after the application object and gone before it.
// After ShowMain the caller runs the application's event loop, unless the program has already ended.
class QtWindowSystem : public WindowSystem {
 public:
  explicit QtWindowSystem(FileSystem& files);
  ~QtWindowSystem() override;
  QtWindowSystem(const QtWindowSystem&) = delete;
  QtWindowSystem& operator=(const QtWindowSystem&) = delete;

  MsgBoxAnswer MsgBox(const std::string& text, MsgBoxButtons buttons = MsgBoxButtons::Ok,
                      const std::string& title = {}) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultText) override;
  void PopupMenu(const std::vector<MenuItem>& items) override;
  std::string BrowseForFolder(const std::string& title) override;

 protected:
  void ShowFirst(Form& form) override;
  void RunModal(Form& form) override;
  void ProcessToolkitEvents() override;
  void WakeUp() override;
  void Quit() override;

 private:
  FormView& ViewOf(Form& form, FormRole role);
  QWidget* WindowOnTop();
  void FollowApplication(Qt::ApplicationState state);
  void ActivateAfterOther();

  FileSystem& files_;
  ToolkitGaps gaps_;
  QTranslator italian_;
  PaintCache painted_;
  QObject events_;  // receiver of the queued calls, which end with it
  std::vector<FormView*> running_;
  bool leftToOther_ = false;
};

}  // namespace Morvane
