// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/pictures/Picture.h"
#include "platform/services/SystemServices.h"

namespace brivolant::test {

/// A folder of its own for one test, gone when the test ends.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  const FolderItem& Item() const { return folder_; }
  /// What lies there, deeper too.
  FolderItem Child(std::string_view path) const { return FolderItem(folder_.Path() / path); }
  /// A file in the folder with that content.
  FolderItem Write(std::string_view name, std::string_view bytes) const;
  /// Names in the folder, sorted, those that begin with a dot too.
  std::vector<std::string> Names() const;

 private:
  FolderItem folder_;
};

/// Numbers and dates for people as in English, whatever the run's locale, while it lives.
class EnglishNumbers {
 public:
  EnglishNumbers();
  ~EnglishNumbers();
  EnglishNumbers(const EnglishNumbers&) = delete;
  EnglishNumbers& operator=(const EnglishNumbers&) = delete;
};

struct RecordingLog final : Log {
  std::vector<std::string> lines;
  void Write(std::string_view line) override { lines.emplace_back(line); }
};

struct RecordingDialogs final : Dialogs {
  std::vector<std::string> messages;
  std::vector<std::string> explanations;
  void Message(const std::string& message, const std::string& explanation) override {
    messages.push_back(message);
    explanations.push_back(explanation);
  }
};

struct FixedUser final : UserDetails {
  std::string FullName() const override { return "Ada Lens"; }
  std::string ContactLink() const override { return "https://ada.example"; }
  std::string Copyright() const override { return "\xC2\xA9 Ada"; }
  std::string CreatedWith() const override { return "Brivolant Photos/1.0.0.0/Mac/x86/"; }
};

struct FixedClock final : Clock {
  Date now{2009, 3, 4, 14, 5, 6};
  Date Now() override { return now; }
};

/// Services that record, with temporary files in a folder of their own.
struct TestServices {
  TestServices();
  TemporaryFolder folder;
  RecordingLog log;
  RecordingDialogs dialogs;
  FixedUser user;
  SystemRandom random{1};
  CleanOnQuit temporary{random};
  FixedClock clock;
  Services services{log, dialogs, user, temporary, clock, random};
};

/// A picture with gradients, edges and noise; the same for the same arguments.
Picture TestPicture(int width, int height, std::uint32_t seed = 1);
Plane TestPlane(int width, int height, std::uint32_t seed = 1);
/// Every pixel has that colour.
Picture PlainPicture(int width, int height, Color color);
/// The largest difference of any channel of two pictures of one size; 1000 if the sizes differ.
int LargestDifference(const Picture& a, const Picture& b);
int LargestDifference(const Plane& a, const Plane& b);

/// Bytes from "01 AB ff" and the like.
std::string Bytes(std::string_view hexadecimal);

}  // namespace brivolant::test
