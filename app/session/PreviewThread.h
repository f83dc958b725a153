// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "app/core/EventTarget.h"
#include "app/core/WorkerServices.h"
#include "engine/EditorInterfaces.h"
#include "engine/PreviewRequest.h"
#include "platform/values/Text.h"

namespace brivolant {

class brivolantProcessorLite;

/// Renders the previews of a processor on a thread of its own; the newest value wins. All but Wait
/// happens on the thread that made the object.
///
/// What is asked for in one turn of the event loop is one request. A render under way is finished
/// and shown though a newer value waits, else a drag would show nothing; it is broken off only when
/// the document, the display's size or the stack is another.
class PreviewThread final : public PreviewMaker {
 public:
  static constexpr LocalizedText kFailed{"PreviewThread.kFailed",
                                         "The photo could not be shown with its effects."};

  /// Serves the processor, which must outlive it, with modules of the same registry.
  PreviewThread(brivolantProcessorLite& processor, ModuleRegistry registry,
                const Services& services);
  /// Waits for the module that works; what was asked for is dropped.
  ~PreviewThread() override;
  PreviewThread(const PreviewThread&) = delete;
  PreviewThread& operator=(const PreviewThread&) = delete;

  void Request(bool full) override;
  bool Running() const override { return running_.has_value(); }

  /// Another document takes the place of the one before, of which nothing is shown any more.
  void DocumentReplaced();
  /// The render under way ends soon, and shows nothing.
  void BreakOff();
  /// Shows what is ready and begins what was asked for. True if nothing is left to show.
  bool Settled();
  /// Waits until no render is under way; on any thread.
  void Wait();
  /// Waits for the newest and shows it, without handling events.
  void Finish();
  /// Calls at once, or when nothing that was asked for is left to show.
  void WhenRendered(std::function<void()> then);

 private:
  struct Shared;
  /// What makes a render that is under way worthless.
  struct Key {
    int Document = 0;
    int Width = 0;
    int Height = 0;
    int Stack = 0;
    friend bool operator==(const Key&, const Key&) = default;
  };
  struct UnderWay {
    Key Of;
    bool Full = false;
  };
  Key Now() const;
  void Post();
  void Advance();
  void Begin();
  void Take();
  void TellRendered();
  static void Work(Shared& shared, ModuleRegistry registry, const Services& services,
                   const std::function<void()>& tell);

  brivolantProcessorLite& processor_;
  ModuleRegistry registry_;
  WorkerServices services_;
  std::unique_ptr<Shared> shared_;
  std::unique_ptr<EventTarget> receiver_;
  std::thread thread_;
  std::optional<UnderWay> running_;
  bool wanted_ = false;
  bool wantedFull_ = false;
  bool posted_ = false;
  int documents_ = 0;
  std::vector<std::function<void()>> waiting_;
};

}  // namespace brivolant
