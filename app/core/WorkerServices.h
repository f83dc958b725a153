// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/services/SystemServices.h"

namespace brivolant {

/// What work on another thread may use while the application goes on: messages and lines of the log
/// wait here until the owner's thread takes them, dice are its own, and a question is answered with
/// kCancel unless its answer was laid ready. Made from the services of the owner, which must
/// outlive it.
class WorkerServices {
 public:
  explicit WorkerServices(const Services& owner);
  WorkerServices(const WorkerServices&) = delete;
  WorkerServices& operator=(const WorkerServices&) = delete;

  const Services& All() const { return all_; }
  /// Takes over who works here, as the owner knows it now; before work begins.
  void Refresh();

  struct Told {
    std::string Message;
    std::string Explanation;
  };
  /// What was told since the last time, each once. Writes the lines that wait to the owner's log.
  std::vector<Told> Take();
  /// The question that was last answered with kCancel for want of an answer, once.
  std::optional<Question> Unanswered();
  /// That question gets this answer, as often as it is asked until Forget.
  void LayReady(const Question& question, Answer answer);
  /// What was asked and answered concerns no later work.
  void Forget();

 private:
  class Kept final : public Log, public Dialogs {
   public:
    void Write(std::string_view line) override;
    void Message(const std::string& message, const std::string& explanation) override;
    Answer Ask(const Question& question) override;
    std::mutex mutex;
    std::vector<std::string> lines;
    std::vector<Told> told;
    std::optional<Question> asked;
    std::map<std::string, Answer> answers;
  };
  struct Details final : UserDetails {
    std::string FullName() const override { return fullName; }
    std::string ContactLink() const override { return contactLink; }
    std::string Copyright() const override { return copyright; }
    std::string CreatedWith() const override { return createdWith; }
    std::string fullName;
    std::string contactLink;
    std::string copyright;
    std::string createdWith;
  };
  Log& log_;
  const UserDetails& owner_;
  Details details_;
  Kept kept_;
  SystemClock clock_;
  SystemRandom random_;
  Services all_;
};

}  // namespace brivolant
