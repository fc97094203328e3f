#include "tests/support/scripted_windows.h"

namespace Morvane {

void ScriptedWindows::UserEvent(const std::function<void()>& handler) {
  Dispatch(handler);
  RunPosted();
}

MsgBoxAnswer ScriptedWindows::MsgBox(const std::string& text, MsgBoxButtons buttons, const std::string&) {
  Boxes.push_back({text, buttons});
  if (AfterBox) AfterBox();
  if (buttons == MsgBoxButtons::Ok) return MsgBoxAnswer::Ok;
  const bool asks = buttons == MsgBoxButtons::YesNo;
  const MsgBoxAnswer answer =
      TakeFront(Answers, "question: " + text, asks ? MsgBoxAnswer::No : MsgBoxAnswer::Cancel);
  const bool yesOrNo = answer == MsgBoxAnswer::Yes || answer == MsgBoxAnswer::No;
  EXPECT_EQ(yesOrNo, asks) << "no such button: " << text;
  return answer;
}

std::string ScriptedWindows::InputBox(const std::string& prompt, const std::string&, const std::string&) {
  return TakeFront(Inputs, "prompt: " + prompt);
}

void ScriptedWindows::PopupMenu(const std::vector<MenuItem>& items) {
  const std::string choice = TakeFront(MenuChoices, "popup menu");
  for (const MenuItem& item : items) {
    if (item.name == choice && item.enabled && item.Click) return item.Click();
  }
  EXPECT_TRUE(choice.empty()) << "no such menu entry: " << choice;
}

std::string ScriptedWindows::BrowseForFolder(const std::string&) {
  return TakeFront(Folders, "folder chooser");
}

void ScriptedWindows::RunModal(Form& form) {
  if (const auto scene = TakeFront(Modal[form.Name()], "window: " + form.Name()))
    UserEvent([&] { scene(form); });
  EXPECT_FALSE(form.Visible() && !Ended()) << form.Name() << " was left open";
  if (form.Visible()) form.UnloadForm();
}

}  // namespace Morvane
