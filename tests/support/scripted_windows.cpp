#include "tests/support/scripted_windows.h"

#include <gtest/gtest.h>

#include <utility>

namespace Morvane {

namespace {

template <typename T>
T TakeFront(std::deque<T>& script) {
  T value = std::move(script.front());
  script.pop_front();
  return value;
}

}  // namespace

void ScriptedWindows::UserEvent(const std::function<void()>& handler) {
  Dispatch(handler);
  RunPosted();
}

MsgBoxAnswer ScriptedWindows::MsgBox(const std::string& text, MsgBoxButtons buttons,
                                     const std::string& title) {
  Boxes.push_back({text, buttons, title});
  if (AfterBox) AfterBox();
  if (buttons == MsgBoxButtons::Ok) return MsgBoxAnswer::Ok;
  if (Answers.empty()) {
    ADD_FAILURE() << "unexpected question: " << text;
    return buttons == MsgBoxButtons::YesNo ? MsgBoxAnswer::No : MsgBoxAnswer::Cancel;
  }
  const MsgBoxAnswer answer = TakeFront(Answers);
  const bool yesOrNo = answer == MsgBoxAnswer::Yes || answer == MsgBoxAnswer::No;
  EXPECT_EQ(yesOrNo, buttons == MsgBoxButtons::YesNo) << "no such button: " << text;
  return answer;
}

std::string ScriptedWindows::InputBox(const std::string& prompt, const std::string& title,
                                      const std::string& defaultText) {
  Prompts.push_back({prompt, title, defaultText});
  if (Inputs.empty()) {
    ADD_FAILURE() << "unexpected prompt: " << prompt;
    return {};
  }
  return TakeFront(Inputs);
}

void ScriptedWindows::PopupMenu(const std::vector<MenuItem>& items) {
  if (MenuChoices.empty()) {
    ADD_FAILURE() << "unexpected popup menu";
    return;
  }
  const std::string choice = TakeFront(MenuChoices);
  for (const MenuItem& item : items) {
    if (item.name == choice && item.enabled && item.Click) return item.Click();
  }
  EXPECT_TRUE(choice.empty()) << "no such menu entry: " << choice;
}

std::string ScriptedWindows::BrowseForFolder(const std::string&) {
  if (Folders.empty()) {
    ADD_FAILURE() << "unexpected folder chooser";
    return {};
  }
  return TakeFront(Folders);
}

void ScriptedWindows::ShowFirst(Form& form) {
  ShownForms.push_back(form.Name());
  RunPosted();
}

void ScriptedWindows::RunModal(Form& form) {
  ShownForms.push_back(form.Name());
  std::deque<std::function<void(Form&)>>& scenes = Modal[form.Name()];
  if (scenes.empty()) {
    ADD_FAILURE() << "unexpected window: " << form.Name();
  } else {
    const auto scene = TakeFront(scenes);
    UserEvent([&] { scene(form); });
    EXPECT_FALSE(form.Visible() && !Ended()) << form.Name() << " was left open";
  }
  if (form.Visible()) form.UnloadForm();
}

}  // namespace Morvane
