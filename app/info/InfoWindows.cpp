// SPDX-License-Identifier: MIT
#include "app/info/InfoWindows.h"

#include <QApplication>
#include <QTimer>
#include <algorithm>

#include "browser/DiskThreads.h"
#include "platform/files/FileNames.h"

namespace brivolant {
namespace {

constexpr int kStep = 10;
/// Windows that are opened at once; what is beyond waits for the next start.
constexpr std::size_t kMost = 10;

}  // namespace

InfoWindows::InfoWindows(const Desk& desk, std::shared_ptr<const FilePreviewer> previewer,
                         QWidget& over, const FolderItem& unsaved)
    : desk_(desk),
      previewer_(std::move(previewer)),
      over_(over),
      unsaved_(unsaved, desk.Services.Log) {}

InfoWindows::~InfoWindows() = default;

std::vector<FloatingMetaData*> InfoWindows::Open() const {
  std::vector<FloatingMetaData*> open;
  for (const auto& window : windows_) {
    if (window->isVisible()) open.push_back(window.get());
  }
  return open;
}

void InfoWindows::Show(const std::vector<FolderItem>& files) {
  const FloatingMetaData* before = windows_.empty() ? nullptr : windows_.back().get();
  for (const FolderItem& file : files) {
    const auto known = std::ranges::find_if(windows_, [&](const auto& window) {
      return window->File() == file && window->isVisible() && !window->IsGone();
    });
    if (known != windows_.end()) {
      (*known)->raise();
      (*known)->activateWindow();
      continue;
    }
    auto made = std::make_unique<FloatingMetaData>(desk_, previewer_, unsaved_);
    FloatingMetaData* window = made.get();
    // It floats over the main window, and is gone with it.
    window->setParent(&over_, Qt::Window);
    if (before != nullptr) window->move(before->pos() + QPoint(kStep, kStep));
    window->Written = [this](const FolderItem& written) {
      if (Written) Written(written);
    };
    window->Kept = [this] { ending_ = nullptr; };
    window->Close = [this, window] {
      // Not from within its own event.
      QTimer::singleShot(0, &over_, [this, window] {
        std::erase_if(windows_, [window](const auto& held) { return held.get() == window; });
        if (ending_ && !MustWait(ending_)) std::exchange(ending_, nullptr)();
      });
    };
    windows_.push_back(std::move(made));
    window->Display(file);
    before = window;
  }
}

void InfoWindows::Follow(const FileMoves& moves) {
  for (const auto& [before, after] : moves) {
    const bool moved = before && after;
    if (moved) unsaved_.Follow(before, after);
    for (FloatingMetaData* window : Open()) {
      if (moved) {
        window->Follow(before, after);
      } else {
        // To the trash, or back from there; folders take what is in them along.
        const FolderItem& place = before ? before : after;
        if (!PlaceAfter(window->File(), place, place).IsNil()) window->Gone(after.IsNil());
      }
    }
  }
}

void InfoWindows::WhenWritten(const std::function<void()>& then) {
  for (FloatingMetaData* window : Open()) {
    if (!window->Writing()) continue;
    return window->Work().WhenIdle([this, then] { WhenWritten(then); });
  }
  then();
}

void InfoWindows::KeepUnsaved() {
  for (FloatingMetaData* window : Open()) window->KeepUnsaved();
}

void InfoWindows::BringBack() {
  std::vector<FolderItem> files = unsaved_.Files();
  if (files.size() > kMost) files.resize(kMost);
  for (const FolderItem& file : files) {
    // Each by itself: the disk of one may be away.
    DiskThreads::Run(file, [this, file, alive = std::weak_ptr<int>(alive_)] {
      if (!file.Exists()) return;
      QMetaObject::invokeMethod(
          qApp,
          [this, file, alive] {
            if (!alive.expired()) Show({file});
          },
          Qt::QueuedConnection);
    });
  }
}

bool InfoWindows::MustWait(const std::function<void()>& then) {
  for (FloatingMetaData* window : Open()) {
    // What is being typed counts as well.
    window->mdc->FinishEdit();
    if (!window->Dirty() && !window->Writing()) continue;
    ending_ = then;
    window->raise();
    window->close();
    return true;
  }
  return false;
}

}  // namespace brivolant
