// SPDX-License-Identifier: MIT
#include "cli/Support.h"

#include <unistd.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <thread>

#include "platform/codecs/ImageCodecs.h"
#include "platform/values/Text.h"

namespace brivolant::cli {
namespace {

std::mutex& Output() {
  static std::mutex mutex;
  return mutex;
}

std::string OneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

}  // namespace

void CollectingDialogs::Message(const std::string& message, const std::string& explanation) {
  if (!said_.empty()) said_ += ' ';
  said_ += message;
  if (!explanation.empty()) said_ += ' ' + explanation;
}

std::string CollectingDialogs::Take() {
  return OneLine(std::exchange(said_, {}));
}

void OptionalLog::Write(std::string_view line) {
  if (shown_) PrintError(std::string(line));
}

Worker::Worker(bool verbose)
    : log(verbose), user(log), temporary(random), services{log,       dialogs, user,
                                                           temporary, clock,   random} {}

void PrintError(const std::string& sentence) {
  const std::lock_guard lock(Output());
  std::fprintf(stderr, "brivolant-cli: %s\n", OneLine(sentence).c_str());
}

void PrintLine(const std::string& line) {
  const std::lock_guard lock(Output());
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
}

void PrintJson(const QJsonValue& value, bool indented) {
  const QJsonDocument document =
      value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
  PrintLine(document.toJson(indented ? QJsonDocument::Indented : QJsonDocument::Compact)
                .trimmed()
                .toStdString());
}

QString ToQt(std::string_view text) {
  return QString::fromStdString(EnsureUTF8(text));
}

QJsonValue ToJson(const Variant& value) {
  if (const auto* flag = value.As<bool>()) return *flag;
  // The shortest decimal of a single, not its double neighbour's sixteen digits.
  if (value.Is<float>()) return Variant(value.ToText()).ToDouble();
  if (value.IsNumber()) return value.ToDouble();
  if (const auto* color = value.As<Color>()) return ToQt("#" + Hexadecimal(color->RGB(), 6));
  if (const auto* pair = value.As<Pair>()) return QJsonArray{pair->Left, pair->Right};
  if (const auto* dictionary = value.As<Dictionary>()) {
    QJsonObject object;
    for (int i = 0; i < dictionary->Count(); ++i) {
      object.insert(ToQt(dictionary->Key(i).ToText()), ToJson(dictionary->ValueAt(i)));
    }
    return object;
  }
  if (const auto* collection = value.As<Collection>()) {
    QJsonArray array;
    for (int i = 0; i < collection->Count(); ++i) array.append(ToJson(collection->Item(i)));
    return array;
  }
  if (value.IsNil()) return QJsonValue::Null;
  return ToQt(value.ToText());
}

ProgressBar::ProgressBar(bool wanted, int total)
    : shown_(wanted && isatty(STDERR_FILENO) != 0), total_(total) {
  if (shown_) Draw();
}

ProgressBar::~ProgressBar() {
  if (shown_) std::fputc('\n', stderr);
}

void ProgressBar::Advance() {
  const std::lock_guard lock(mutex_);
  ++done_;
  if (shown_) Draw();
}

void ProgressBar::Draw() const {
  constexpr int kWidth = 40;
  const int filled = total_ == 0 ? kWidth : kWidth * done_ / total_;
  const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                          std::string(static_cast<std::size_t>(kWidth - filled), '.');
  std::fprintf(stderr, "\r[%s] %d of %d", bar.c_str(), done_, total_);
  std::fflush(stderr);
}

int RunJobs(int count, int jobs, const std::function<bool(int)>& work) {
  const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
  const int threads = std::clamp(jobs > 0 ? jobs : cores, 1, std::max(1, count));
  std::atomic<int> next = 0;
  std::atomic<int> failed = 0;
  const auto run = [&] {
    for (int index = next++; index < count; index = next++) {
      if (!work(index)) ++failed;
    }
  };
  std::vector<std::thread> others;
  for (int i = 1; i < threads; ++i) others.emplace_back(run);
  run();
  for (std::thread& thread : others) thread.join();
  return failed;
}

bool Guarded(const FolderItem& file, std::string& error, const std::function<bool()>& work) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    error = CodecMessage(codecTexts::kNoMemory, file);
  } catch (const std::exception& failure) {
    error = CodecMessage(codecTexts::kDamaged, file, failure.what());
  }
  return false;
}

std::int64_t PeakMemory() {
  // The counter of getrusage also holds what the parent used before this program was started.
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return Variant(line.substr(6)).ToInt() * std::int64_t{1024};
  }
  return 0;
}

}  // namespace brivolant::cli
