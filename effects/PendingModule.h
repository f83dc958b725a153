// SPDX-License-Identifier: MIT
#pragma once

#include "engine/effectModule.h"
#include "platform/values/Text.h"

namespace brivolant {

/// A module that has its name and place, and no effect yet. It shows no rows and changes no pixel;
/// settings that a style holds for it are kept and written back as they came.
class PendingModule final : public effectModule {
 public:
  PendingModule(std::string_view id, const LocalizedText& name) : id_(id), name_(name) {}
  bool Complete() const override { return false; }

 protected:
  std::string getID() const override { return std::string(id_); }
  std::string getName() const override { return name_.Text(); }
  void saveSettings(Dictionary& settings) const override { settings = settings_; }
  void loadSettings(const Dictionary& settings) override {
    settings_ = settings;
    settings_.Remove("Enabled");
  }
  void SettingsReset() override { settings_ = {}; }

 private:
  std::string_view id_;
  LocalizedText name_;
  Dictionary settings_;
};

}  // namespace brivolant
