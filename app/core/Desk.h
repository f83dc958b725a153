// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/services/Preferences.h"
#include "platform/services/Services.h"

namespace brivolant {

class OneClickWonderStorage;
class browserItemCollection;

/// What a part of the window gets of the application: its services, and the few things that it may
/// ask the application for. The application outlives whoever holds one.
struct Desk {
  brivolant::Services Services;
  brivolant::Preferences& Preferences;
  brivolant::FileDialogs& FileDialogs;
  brivolant::Clipboard& Clipboard;
  brivolant::ColorPanel& ColorPanel;
  brivolant::Desktop& Desktop;
  /// The styles of the program and of the user; read when they are first needed.
  OneClickWonderStorage& Styles;

  /// Opens a file as if the desktop had handed it over.
  std::function<void(const FolderItem&)> OpenDocument;
  std::function<void()> BringToFront;
  /// Hands a file to the mail program; false if none could be started.
  std::function<bool(const FolderItem& file, const std::string& subject)> SendViaEmail;
  /// Keeps who made a style as the user's own details.
  std::function<void(const std::string& name, const std::string& link)> KeepMaker;
  /// The mounted disks as a folder; read anew at every call, and the same object always.
  std::function<std::shared_ptr<browserItemCollection>()> Computer;
  /// Quick look was opened or closed.
  std::function<void(bool open)> QuickLookOpen;
  /// Opens a window for each file, which shows what is known of it.
  std::function<void(const std::vector<FolderItem>& files)> ShowInfo;
  /// Files or folders have other places now, in order: what shows them follows.
  std::function<void(const std::vector<std::pair<FolderItem, FolderItem>>& moves)> InfoFollows;
  /// Calls when no window is writing what it shows: files can be moved then.
  std::function<void(const std::function<void()>& then)> WhenInfoIsWritten;
};

}  // namespace brivolant
