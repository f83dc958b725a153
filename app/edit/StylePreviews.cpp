// SPDX-License-Identifier: MIT
#include "app/edit/StylePreviews.h"

#include <QThreadPool>

#include "effects/styles/OneClickWonder.h"
#include "formats/PictureStrings.h"
#include "platform/pictures/Parallel.h"

namespace brivolant {

StylePreviews::StylePreviews() : pool_(std::make_unique<QThreadPool>()) {
  pool_->setMaxThreadCount(1);
}

StylePreviews::~StylePreviews() {
  pool_->clear();
  pool_->waitForDone();
}

void StylePreviews::Decode(const OneClickWonder& style) {
  if (style.PreviewIsDecoded()) return;
  ++pending_;
  pool_->start([this, id = style.ID, bytes = style.PreviewBytes()] {
    const ThreadLimit one(1);
    const Picture preview = JpegImporter::PreviewFromString(bytes);
    QMetaObject::invokeMethod(
        this,
        [this, id, preview] {
          --pending_;
          if (Ready) Ready(id, preview);
        },
        Qt::QueuedConnection);
  });
}

}  // namespace brivolant
