// SPDX-License-Identifier: MIT
#pragma once

#include "kit/ifkWindow.h"
#include "platform/values/Text.h"

class QLabel;

namespace brivolant {

/// Name, version and licence of the program; also its opening screen.
class AboutBox final : public ifkWindow {
 public:
  static constexpr LocalizedText kVersion{"AboutBox.kVersion", "version"};
  static constexpr LocalizedText kProgressLoading{"AboutBox.kProgressLoading",
                                                  "Loading <ApplicationName>."};
  static constexpr LocalizedText kDescription{
      "AboutBox.kDescription", "Improves and keeps your photos. Every edit can be taken back."};
  static constexpr LocalizedText kLicense{"AboutBox.kLicense", "Free software, MIT license."};

  explicit AboutBox(QWidget* parent = nullptr);
  /// Shows it without close and minimise buttons while the program starts.
  void UseAsOpeningScreen();
  QString VersionLine() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QLabel* status_;
};

}  // namespace brivolant
