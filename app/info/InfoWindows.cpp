// SPDX-License-Identifier: MIT
#include "app/info/InfoWindows.h"

#include <QTimer>
#include <algorithm>

namespace brivolant {
namespace {

constexpr int kStep = 10;

}  // namespace

InfoWindows::InfoWindows(const Desk& desk, std::shared_ptr<const FilePreviewer> previewer,
                         QWidget& over)
    : desk_(desk), previewer_(std::move(previewer)), over_(over) {}

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
      return window->File() == file && window->isVisible();
    });
    if (known != windows_.end()) {
      (*known)->raise();
      (*known)->activateWindow();
      continue;
    }
    auto made = std::make_unique<FloatingMetaData>(desk_, previewer_);
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
