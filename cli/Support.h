// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "app/core/ApplicationServices.h"
#include "platform/files/FolderItem.h"
#include "platform/services/Services.h"
#include "platform/values/Variant.h"

namespace brivolant::cli {

/// Exit codes of the program.
enum ExitCode { kDone = 0, kFileFailed = 1, kWrongUse = 2 };

/// Keeps what a window would have shown, for the one sentence on standard error.
class CollectingDialogs final : public Dialogs {
 public:
  void Message(const std::string& message, const std::string& explanation) override;
  /// What was said since the last call, in one line.
  std::string Take();

 private:
  std::string said_;
};

/// Log lines go to standard error if they are wanted.
class OptionalLog final : public Log {
 public:
  explicit OptionalLog(bool shown) : shown_(shown) {}
  void Write(std::string_view line) override;

 private:
  bool shown_;
};

/// The services of one worker.
struct Worker {
  explicit Worker(bool verbose);

  OptionalLog log;
  CollectingDialogs dialogs;
  StoredUserDetails user;
  SystemRandom random;
  LazyTemporaryFiles temporary;
  SystemClock clock;
  Services services;
};

/// Prints a sentence on standard error; safe from any thread.
void PrintError(const std::string& sentence);
/// Prints a line on standard output; safe from any thread.
void PrintLine(const std::string& line);
void PrintJson(const QJsonValue& value, bool indented);

QJsonValue ToJson(const Variant& value);
QString ToQt(std::string_view text);

/// A progress bar on the terminal, redrawn in place; silent elsewhere.
class ProgressBar {
 public:
  ProgressBar(bool wanted, int total);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  void Advance();

 private:
  void Draw() const;
  std::mutex mutex_;
  bool shown_;
  int total_;
  int done_ = 0;
};

/// Runs `work(index)` for each index on `jobs` threads (0: as many as cores). Gives the number of
/// indexes for which it returned false.
int RunJobs(int count, int jobs, const std::function<bool(int index)>& work);

/// Runs `work`; an exception, such as memory that ran out, becomes the sentence in `error` and
/// false.
bool Guarded(const FolderItem& file, std::string& error, const std::function<bool()>& work);

/// The largest memory that the process has used, in bytes.
std::int64_t PeakMemory();

}  // namespace brivolant::cli
