// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/services/Services.h"

namespace brivolant {

/// Messages, questions and choosers of the application: as long as one is open something is held,
/// so that nothing that arrives meanwhile replaces what stands beneath it.
class HoldingDialogs final : public Dialogs, public FileDialogs {
 public:
  using Hold = std::function<std::shared_ptr<void>()>;

  /// What is handed in must outlive the object.
  HoldingDialogs(Dialogs& dialogs, FileDialogs& choosers, Hold hold)
      : dialogs_(dialogs), choosers_(choosers), hold_(std::move(hold)) {}

  void Message(const std::string& message, const std::string& explanation) override {
    const auto held = hold_();
    dialogs_.Message(message, explanation);
  }
  Answer Ask(const Question& question) override {
    const auto held = hold_();
    return dialogs_.Ask(question);
  }
  std::vector<FolderItem> Open(const std::string& title, const FolderItem& folder,
                               const std::vector<FileFilter>& filters) override {
    const auto held = hold_();
    return choosers_.Open(title, folder, filters);
  }
  FolderItem Save(const std::string& title, const FolderItem& suggestion,
                  const std::vector<FileFilter>& filters, int& filter) override {
    const auto held = hold_();
    return choosers_.Save(title, suggestion, filters, filter);
  }

 private:
  Dialogs& dialogs_;
  FileDialogs& choosers_;
  Hold hold_;
};

}  // namespace brivolant
