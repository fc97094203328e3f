#pragma once

#include "platform/app_info.h"
#include "platform/controls/screen.h"
#include "platform/controls/window_system.h"
#include "platform/drawing/printer.h"
#include "platform/files/file_system.h"
#include "platform/font_catalog.h"
#include "platform/http_client.h"
#include "platform/launcher.h"
#include "platform/picture.h"
#include "platform/text_metrics.h"

namespace Morvane {

// Everything that the program asks of the machine. Made once, in main or by a test, and passed by reference.
struct Platform {
  WindowSystem& windows;
  Screen& screen;
  FileSystem& files;
  PictureLoader& pictures;
  const TextMetrics& text;
  const FontCatalog& fonts;
  Printer& printer;
  Launcher& launcher;
  HttpClient& http;
  AppInfo app;
};

}  // namespace Morvane
