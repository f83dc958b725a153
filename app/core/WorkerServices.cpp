// SPDX-License-Identifier: MIT
#include "app/core/WorkerServices.h"

#include <utility>

namespace brivolant {

WorkerServices::WorkerServices(const Services& owner)
    : log_(owner.Log), owner_(owner.UserDetails), all_{kept_,    kept_,
                                                       details_, owner.TemporaryFiles,
                                                       clock_,   random_} {
  Refresh();
}

void WorkerServices::Refresh() {
  details_.fullName = owner_.FullName();
  details_.contactLink = owner_.ContactLink();
  details_.copyright = owner_.Copyright();
  details_.createdWith = owner_.CreatedWith();
}

void WorkerServices::Kept::Write(std::string_view line) {
  const std::lock_guard lock(mutex);
  lines.emplace_back(line);
}

void WorkerServices::Kept::Message(const std::string& message, const std::string& explanation) {
  const std::lock_guard lock(mutex);
  told.push_back({message, explanation});
}

Answer WorkerServices::Kept::Ask(const Question& question) {
  const std::lock_guard lock(mutex);
  if (const auto found = answers.find(question.Message); found != answers.end()) {
    return found->second;
  }
  asked = question;
  return Answer::kCancel;
}

std::optional<Question> WorkerServices::Unanswered() {
  const std::lock_guard lock(kept_.mutex);
  return std::exchange(kept_.asked, std::nullopt);
}

void WorkerServices::LayReady(const Question& question, Answer answer) {
  const std::lock_guard lock(kept_.mutex);
  kept_.answers[question.Message] = answer;
}

void WorkerServices::Forget() {
  const std::lock_guard lock(kept_.mutex);
  kept_.asked.reset();
  kept_.answers.clear();
}

std::vector<WorkerServices::Told> WorkerServices::Take() {
  const std::lock_guard lock(kept_.mutex);
  for (const std::string& line : std::exchange(kept_.lines, {})) log_.Write(line);
  return std::exchange(kept_.told, {});
}

}  // namespace brivolant
