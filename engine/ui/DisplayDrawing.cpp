// SPDX-License-Identifier: MIT
// What the display shows, and of it only the part that is to be seen.
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <new>

#include "engine/MarkCanvas.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/ui/EditorDisplay.h"
#include "formats/BrivolantDocument.h"
#include "kit/InterfaceKitSupport.h"
#include "platform/pictures/kernels/ScaleKernels.h"

namespace brivolant {
namespace {

constexpr QRgb kTop = 0xff030303;
constexpr QRgb kBottom = 0xff505160;
constexpr double kShadowDistance = 5;
constexpr double kShadowBlur = 5;

QSize SizeOf(const Picture& picture) {
  return {picture.Width(), picture.Height()};
}

/// The columns of a picture that scaling an area of it looks at, a whole cache line first.
ConstPixels Columns(const ConstPixels& pixels, kernels::SourceArea& area, int width) {
  constexpr int kLine = 16;
  const double reach = std::max(area.width / width, 1.0) + 1;
  const int first =
      std::clamp(static_cast<int>(area.x - reach), 0, pixels.width - 1) / kLine * kLine;
  const int last = std::min(static_cast<int>(std::ceil(area.x + area.width + reach)), pixels.width);
  area.x -= first;
  return {pixels.data + std::ptrdiff_t{4} * first, pixels.stride, std::max(last - first, 1),
          pixels.height};
}

/// The visible part of a picture that takes `whole`. Sharp means that pixels which are enlarged
/// stay squares.
Picture PartOf(const Picture& picture, const QRect& whole, const QRect& visible, bool sharp) {
  Picture part = Picture::Uninitialized(visible.width(), visible.height());
  if (part.IsNil()) return part;
  const QRect place = visible.translated(-whole.topLeft());
  const double across = 1.0 * picture.Width() / whole.width();
  const double down = 1.0 * picture.Height() / whole.height();
  kernels::SourceArea area{place.left() * across, place.top() * down, place.width() * across,
                           place.height() * down};
  if (sharp && across <= 1 && down <= 1) {
    kernels::Magnify(picture.View(), area, part.Edit());
    return part;
  }
  const ConstPixels from = Columns(picture.View(), area, visible.width());
  kernels::Scale(from, area, part.Edit());
  return part;
}

}  // namespace

int EditorDisplay::Width() const {
  return static_cast<int>(std::lround(width() * devicePixelRatioF()));
}
int EditorDisplay::Height() const {
  return static_cast<int>(std::lround(height() * devicePixelRatioF()));
}

bool EditorDisplay::TakeRoom() {
  const QSize size(Width(), Height());
  if (size.isEmpty()) return false;
  if (buffer_.size() == size) return true;
  constexpr std::size_t kPixel = 4;
  const auto pixels = [](const QSize& of) {
    return static_cast<std::size_t>(of.width()) * static_cast<std::size_t>(of.height());
  };
  // The memory stays as panels beside open and close: fresh pages cost more than what is painted.
  const std::size_t wanted = pixels(size) * kPixel;
  if (wanted > room_) {
    buffer_ = QImage();
    room_ = std::max(wanted, pixels(window()->size() * devicePixelRatioF()) * kPixel);
    memory_.reset(new (std::nothrow) uchar[room_]);
    if (!memory_) room_ = 0;
  }
  buffer_ = memory_ ? QImage(memory_.get(), size.width(), size.height(),
                             static_cast<qsizetype>(kPixel) * size.width(), QImage::Format_RGB32)
                    : QImage();
  return !buffer_.isNull();
}

void EditorDisplay::Update(bool full) {
  if (!InterfaceKitSupport::Displayable(*this)) {
    stale_ = true;
    return;
  }
  const bool whole = full || stale_ || buffer_.size() != QSize(Width(), Height());
  if (!TakeRoom()) return;
  stale_ = false;
  DrawPictures(whole);
  if (whole) {
    update();
  } else {
    const double ratio = devicePixelRatioF();
    const auto shown = [ratio](const QRect& r) {
      return QRectF(r.x() / ratio, r.y() / ratio, r.width() / ratio, r.height() / ratio)
          .toAlignedRect()
          .adjusted(-1, -1, 1, 1);
    };
    update(shown(PreviewRect() & view_.PhotoArea()));
    if (!BeforeRect().isEmpty()) update(shown(BeforeRect() & view_.BeforeArea()));
  }
  TellView();
}

void EditorDisplay::TellView() {
  const std::tuple now(view_.Fits(), view_.Scale(), ShowBefore, shown_);
  if (std::exchange(told_, now) != now && ViewChanged) ViewChanged();
}

void EditorDisplay::Look(const std::function<void(PhotoView&)>& change) {
  change(view_);
  Update(true);
}

void EditorDisplay::ShowFull(const Picture& after, const Picture& before) {
  const bool open = myProcessor != nullptr && myProcessor->Document != nullptr;
  const Picture preview = open ? myProcessor->Document->PreviewAfter : Picture();
  // What another preview has replaced already is not drawn once more to go.
  const bool shown = ShowsFull(preview) || !before.SharesPixelsWith(fullBefore_);
  full_ = after;
  fullBefore_ = before;
  fullOf_ = after.IsNil() ? Picture() : preview;
  if ((shown || ShowsFull(preview)) && !view_.Fits()) Update(false);
}

bool EditorDisplay::ShowsFull(const Picture& preview) const {
  return !full_.IsNil() && fullOf_.SharesPixelsWith(preview);
}

void EditorDisplay::ShowInstead(const Picture& picture) {
  if (picture.IsNil() && instead_.IsNil()) return;
  instead_ = picture;
  Update(true);
}

void EditorDisplay::LayOut(const Picture& preview) {
  PhotoView::Content content;
  content.Display = buffer_.size();
  content.PixelRatio = devicePixelRatioF();
  if (!preview.IsNil()) {
    BrivolantDocument& document = *myProcessor->Document;
    content.Photo = {document.Width(), document.Height()};
    if (document.QuarterTurned()) content.Photo.transpose();
    content.Preview = SizeOf(preview);
    // An effect may have made the picture larger, and the full one likewise.
    const QSize base = SizeOf(document.PreviewBase);
    if (content.Preview != base && !base.isEmpty()) {
      content.Photo.setWidth(content.Photo.width() * content.Preview.width() / base.width());
      content.Photo.setHeight(content.Photo.height() * content.Preview.height() / base.height());
    }
    content.Beside = ShowBefore;
    content.Before = SizeOf(document.PreviewBefore);
  }
  view_.Show(content);
}

Picture EditorDisplay::BeforeShown() {
  const BrivolantDocument& document = *myProcessor->Document;
  if (!view_.Fits()) {
    // Of the same part as the photo beside it, however that is cropped and turned.
    return fullBefore_.IsNil() ? document.PreviewBase : fullBefore_;
  }
  const QSize size = BeforeRect().size();
  if (!beforeSource_.SharesPixelsWith(document.PreviewBefore) || SizeOf(beforeShown_) != size) {
    beforeSource_ = document.PreviewBefore;
    beforeShown_ = SharedPictureEffects::Scale(beforeSource_, size.width(), size.height(),
                                               SharedPictureEffects::kScaleExactly);
  }
  return beforeShown_;
}

void EditorDisplay::DrawPart(QPainter& painter, const Picture& picture, const QRect& whole,
                             const QRect& area, bool sharp, bool marks) {
  const QRect visible = whole & area;
  if (visible.isEmpty() || picture.IsNil()) return;
  if (!marks && whole.size() == SizeOf(picture)) {
    painter.drawImage(visible.topLeft(), picture.AsImage(), visible.translated(-whole.topLeft()));
    return;
  }
  Picture part = PartOf(picture, whole, visible, sharp);
  if (part.IsNil()) return;
  if (marks) {
    MarkCanvas canvas(part, whole.translated(-visible.topLeft()));
    myProcessor->DrawMarks(canvas);
  }
  painter.drawImage(visible.topLeft(), part.AsImage());
}

const QImage& EditorDisplay::Buffer() {
  if (!newer_.IsNil()) {
    QPainter painter(&buffer_);
    const QRect inside = framed_.adjusted(1, 1, -1, -1);
    painter.drawImage(inside.topLeft(), newer_.AsImage(), inside.translated(-framed_.topLeft()));
    newer_ = Picture();
  }
  return buffer_;
}

QRect EditorDisplay::NewerPart() const {
  const int ratio = static_cast<int>(devicePixelRatioF());
  const QRect inside = framed_.adjusted(1, 1, -1, -1) & buffer_.rect();
  const QPoint first((inside.left() + ratio - 1) / ratio, (inside.top() + ratio - 1) / ratio);
  const QPoint behind((inside.right() + 1) / ratio, (inside.bottom() + 1) / ratio);
  return {first, behind - QPoint(1, 1)};
}

bool EditorDisplay::TakeNewer(QPainter& painter, const Picture& photo) {
  const double ratio = devicePixelRatioF();
  if (!view_.Fits() || PreviewRect() != framed_ || framed_.size() != SizeOf(photo) ||
      !BeforeRect().isEmpty() || ratio != std::floor(ratio)) {
    return false;
  }
  const QRect part = NewerPart();
  if (part.isEmpty()) return false;
  const int dense = static_cast<int>(ratio);
  painter.setClipRegion(QRegion(framed_.adjusted(1, 1, -1, -1)) -
                        QRect(part.topLeft() * dense, part.size() * dense));
  painter.drawImage(framed_.topLeft(), photo.AsImage());
  newer_ = photo;
  return true;
}

void EditorDisplay::DrawPictures(bool full) {
  QPainter painter(&buffer_);
  if (full) {
    InterfaceKitSupport::DrawGradient(painter, buffer_.rect(), QColor::fromRgb(kTop),
                                      QColor::fromRgb(kBottom), InterfaceKitSupport::kGradientDown);
  }
  newer_ = Picture();
  const bool open = myProcessor != nullptr && myProcessor->Document != nullptr;
  const Picture preview = !open              ? Picture()
                          : instead_.IsNil() ? myProcessor->Document->PreviewAfter
                                             : instead_;
  LayOut(preview);
  if (full) framed_ = QRect();
  if (preview.IsNil()) return;
  const double ratio = devicePixelRatioF();
  const auto around = [&](const QRect& place, const QRect& area, const auto& draw) {
    painter.setClipRect(area);
    if (full && area.contains(place)) {
      InterfaceKitSupport::DrawDropShadow(painter, QRectF(place), 0, kShadowDistance * ratio,
                                          kShadowBlur * ratio);
    }
    draw();
    painter.setPen(Qt::white);
    painter.setBrush(Qt::NoBrush);
    // Enlarged, no pixel of the photo is covered.
    painter.drawRect(view_.Fits() ? place.adjusted(0, 0, -1, -1) : place.adjusted(-1, -1, 0, 0));
  };
  const Picture marked = view_.Fits() && instead_.IsNil() ? myProcessor->Preview() : preview;
  if (!full && TakeNewer(painter, marked)) return;
  framed_ = PreviewRect();
  around(PreviewRect(), view_.PhotoArea(), [&] {
    if (view_.Fits()) {
      painter.setRenderHint(QPainter::SmoothPixmapTransform,
                            PreviewRect().size() != SizeOf(marked));
      painter.drawImage(PreviewRect(), marked.AsImage());
      return;
    }
    const bool sharp = ShowsFull(preview);
    const bool marks = instead_.IsNil() && myProcessor->SelectedEffect() != nullptr;
    DrawPart(painter, sharp ? full_ : preview, PreviewRect(), view_.PhotoArea(), sharp, marks);
  });
  if (BeforeRect().isEmpty() || myProcessor->Document->PreviewBefore.IsNil()) return;
  around(BeforeRect(), view_.BeforeArea(), [&] {
    DrawPart(painter, BeforeShown(), BeforeRect(), view_.BeforeArea(), !fullBefore_.IsNil(), false);
  });
}

void EditorDisplay::paintEvent(QPaintEvent* event) {
  if (stale_ || buffer_.size() != QSize(Width(), Height())) {
    if (!TakeRoom()) return;
    stale_ = false;
    DrawPictures(true);
  }
  QPainter painter(this);
  const double ratio = devicePixelRatioF();
  // On a screen of another density the preview has too few pixels, or too many.
  if (ratio != lastRatio_ && lastRatio_ > 0 && Resized) QTimer::singleShot(0, this, Resized);
  lastRatio_ = ratio;
  const auto draw = [&](const QRegion& region, const QImage& from, const QPoint& origin) {
    for (const QRect& part : region) {
      painter.drawImage(QRectF(part), from,
                        QRectF(part.x() * ratio - origin.x(), part.y() * ratio - origin.y(),
                               part.width() * ratio, part.height() * ratio));
    }
  };
  const QRegion newer = newer_.IsNil() ? QRegion() : event->region() & NewerPart();
  if (!newer.isEmpty()) draw(newer, newer_.AsImage(), framed_.topLeft());
  draw(event->region() - newer, buffer_, {});
}

void EditorDisplay::resizeEvent(QResizeEvent*) {
  stale_ = true;
  if (Resized) Resized();
}

void EditorDisplay::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  shown_ = true;
  TellView();
}

void EditorDisplay::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  shown_ = false;
  TellView();
}

}  // namespace brivolant
