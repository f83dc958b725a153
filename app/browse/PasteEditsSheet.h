// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <functional>

#include "app/session/ManyEdits.h"
#include "platform/services/Preferences.h"
#include "platform/values/Text.h"

class QCheckBox;
class QComboBox;

namespace brivolant {

/// Asks what of copied edits is wanted, and where new documents go.
class PasteEditsSheet final : public QDialog {
 public:
  static constexpr LocalizedText kTitle{"PasteEditsSheet.kTitle", "Paste Edits"};
  static constexpr LocalizedText kFrom{"PasteEditsSheet.kFrom", "Edits of:"};
  static constexpr LocalizedText kClipboard{"PasteEditsSheet.kClipboard", "the clipboard"};
  static constexpr LocalizedText kOnto{"PasteEditsSheet.kOnto", "Photos:"};
  static constexpr LocalizedText kAlso{"PasteEditsSheet.kAlso", "Also paste:"};
  static constexpr LocalizedText kCrop{"PasteEditsSheet.kCrop", "Crop"};
  static constexpr LocalizedText kTurns{"PasteEditsSheet.kTurns", "Turns"};
  static constexpr LocalizedText kPlace{"PasteEditsSheet.kPlace", "New documents:"};
  static constexpr LocalizedText kBeside{"PasteEditsSheet.kBeside", "Beside their photos"};
  static constexpr LocalizedText kInFolder{"PasteEditsSheet.kInFolder", "In \"<name>\""};
  static constexpr LocalizedText kPaste{"PasteEditsSheet.kPaste", "Paste"};

  PasteEditsSheet(QWidget& window, ManyEdits::Order order, Preferences& preferences);

  QCheckBox& Crop() { return *crop_; }
  QCheckBox& Turns() { return *turns_; }
  QComboBox& Place() { return *place_; }

  /// The order with the user's choices.
  std::function<void(const ManyEdits::Order&)> Accepted;

 private:
  void Choose();

  ManyEdits::Order order_;
  Preferences& preferences_;
  QCheckBox* crop_;
  QCheckBox* turns_;
  QComboBox* place_;
};

}  // namespace brivolant
