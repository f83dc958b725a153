// SPDX-License-Identifier: MIT
#include "kit/InterfaceKitSupport.h"

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/pictures/Graphics.h"

namespace brivolant::InterfaceKitSupport {
namespace {

/// A copy with one table over all channels.
template <class Function>
Picture WithTable(const Picture& icon, Function value) {
  Picture copy = icon;
  copy.Depth(32);
  RGBSurface(copy).Transform(MakeTable(value));
  return copy;
}

constexpr int kGap = 4;
constexpr int kMargin = 8;

}  // namespace

Picture AsDisabledIcon(const Picture& icon) {
  if (icon.IsNil()) return icon;
  return WithTable(icon, [](int i) { return static_cast<int>(128 + i * 0.4980392157); });
}

Picture AsPressedIcon(const Picture& icon) {
  if (icon.IsNil()) return icon;
  return WithTable(icon, [](int i) { return std::max(i - 128, 0); });
}

Picture AsEngraved(const Picture& icon) {
  if (icon.IsNil()) return icon;
  Picture engraved = NewPicture(icon.Width(), icon.Height() + 1, 32);
  Plane mask(icon.Width(), icon.Height() + 1, 255);
  Picture white = NewPicture(icon.Width(), icon.Height(), 32);
  if (engraved.IsNil() || mask.IsNil() || white.IsNil()) return {};
  if (const Plane* shape = icon.Mask()) white.SetMask(*shape);
  {
    Graphics g(engraved);
    g.DrawPicture(white, 0, 1);
    g.DrawPicture(icon, 0, 0);
  }
  // Opaque where either copy is.
  Grey bytes = mask.Edit();
  for (int y = 0; y < icon.Height(); ++y) {
    for (int x = 0; x < icon.Width(); ++x) {
      const std::uint8_t shape = icon.Mask() != nullptr ? icon.Mask()->At(x, y) : 0;
      for (const int row : {y, y + 1}) {
        bytes.Row(row)[x] = std::min(bytes.Row(row)[x], shape);
      }
    }
  }
  engraved.SetMask(std::move(mask));
  return engraved;
}

Picture AsEngravedInversed(const Picture& icon) {
  const Picture engraved = AsEngraved(icon);
  return engraved.IsNil() ? engraved : WithTable(engraved, [](int i) { return 255 - i; });
}

QString ClipString(const QPainter& painter, const QString& text, int width) {
  const int needed = painter.fontMetrics().horizontalAdvance(text);
  if (needed <= width || text.isEmpty()) return text;
  const double perCharacter = 1.0 * needed / static_cast<double>(text.size());
  return text.left(std::max(static_cast<int>(width / perCharacter) - 2, 0));
}

void DrawCaptionAndIcon(QPainter& painter, const QRect& rect, const QString& caption,
                        const QIcon& icon, int iconSize, int alignment, int placement,
                        bool enabled) {
  QString text;
  for (int i = 0; i < caption.size(); ++i) {
    if (caption[i] == QLatin1Char('&') &&
        (i + 1 >= caption.size() || caption[i + 1] != QLatin1Char('&'))) {
      continue;
    }
    if (caption[i] == QLatin1Char('&')) ++i;
    text += caption[i];
  }
  const bool hasIcon = !icon.isNull();
  const bool beside = hasIcon && placement == kIconLeft;
  const int gap = hasIcon && !text.isEmpty() ? kGap : 0;
  text = ClipString(painter, text, rect.width() - kGap - (beside ? iconSize : 0));
  const QFontMetrics metrics = painter.fontMetrics();
  const int textWidth = metrics.horizontalAdvance(text);
  const int textHeight = text.isEmpty() ? 0 : metrics.height();
  const int iconExtent = hasIcon ? iconSize : 0;
  const int width = beside ? iconExtent + gap + textWidth : std::max(iconExtent, textWidth);
  const int height =
      beside ? std::max(iconExtent, textHeight) : iconExtent + (hasIcon ? gap : 0) + textHeight;
  int x = rect.left() + (rect.width() - width) / 2;
  if (alignment % 3 == 0) x = rect.left() + kMargin;
  if (alignment % 3 == 2) x = rect.left() + rect.width() - kMargin - width;
  int y = rect.top() + (rect.height() - height) / 2;
  if (alignment / 3 == 1) y = rect.top() + kGap;
  if (alignment / 3 == 2) y = rect.top() + rect.height() - kGap - height;
  if (hasIcon) {
    const int iconX = beside ? x : x + (width - iconExtent) / 2;
    const int iconY = beside ? y + (height - iconExtent) / 2 : y;
    icon.paint(&painter, QRect(iconX, iconY, iconExtent, iconExtent), Qt::AlignCenter,
               enabled ? QIcon::Normal : QIcon::Disabled);
  }
  const int textX = beside ? x + iconExtent + gap : x + (width - textWidth) / 2;
  const int textY = beside ? y + (height - textHeight) / 2 : y + height - textHeight;
  painter.drawText(textX, textY + metrics.ascent(), text);
}

void DrawDropShadow(QPainter& painter, const QRectF& rect, double dx, double dy, double blur) {
  // A blurred rectangle is the product of two blurred edges (the integral of a Gaussian), so its
  // shadow is made of one profile along each side.
  constexpr double kDarkness = 0.75;
  const double ratio = painter.device() == nullptr ? 1 : painter.device()->devicePixelRatioF();
  const double sigma = std::max(blur / 2, 0.25);
  const double reach = std::ceil(3 * sigma);
  const QRectF shadow = rect.translated(dx, dy);
  const QRectF area = shadow.adjusted(-reach, -reach, reach, reach);
  const auto profile = [&](double length, double extent) {
    std::vector<double> values(static_cast<std::size_t>(std::max(extent * ratio, 1.0)));
    for (std::size_t i = 0; i < values.size(); ++i) {
      const double at = (static_cast<double>(i) + 0.5) / ratio - reach;
      values[i] =
          0.5 * (std::erf(at / (sigma * M_SQRT2)) - std::erf((at - length) / (sigma * M_SQRT2)));
    }
    return values;
  };
  const auto across = profile(shadow.width(), area.width());
  const auto down = profile(shadow.height(), area.height());
  const int width = static_cast<int>(across.size());
  const int height = static_cast<int>(down.size());
  const auto draw = [&](int left, int top, int w, int h) {
    if (w <= 0 || h <= 0) return;
    QImage image(w, h, QImage::Format_Alpha8);
    if (image.isNull()) return;
    const auto x0 = static_cast<std::size_t>(left);
    const auto y0 = static_cast<std::size_t>(top);
    for (int y = 0; y < h; ++y) {
      uchar* row = image.scanLine(y);
      const double strength = 255 * kDarkness * down.at(y0 + static_cast<std::size_t>(y));
      for (int x = 0; x < w; ++x) {
        const double share = across.at(x0 + static_cast<std::size_t>(x));
        row[x] = static_cast<uchar>(std::lround(strength * share));
      }
    }
    image.setDevicePixelRatio(ratio);
    painter.drawImage(area.topLeft() + QPointF(left, top) / ratio, image);
  };
  // Only what the rectangle itself will not cover.
  const auto inside = [ratio](double length) { return static_cast<int>(length * ratio); };
  const int left = std::clamp(inside(rect.left() - area.left()), 0, width);
  const int right = std::clamp(inside(rect.right() - area.left()), left, width);
  const int top = std::clamp(inside(rect.top() - area.top()), 0, height);
  const int bottom = std::clamp(inside(rect.bottom() - area.top()), top, height);
  draw(0, 0, width, top);
  draw(0, bottom, width, height - bottom);
  draw(0, top, left, bottom - top);
  draw(right, top, width - right, bottom - top);
  painter.fillRect(rect, Qt::black);
}

void DrawGradient(QPainter& painter, const QRect& rect, const QColor& from, const QColor& to,
                  GradientKind kind) {
  if (kind == kGradientBand) {
    const int half = rect.height() / 2;
    DrawGradient(painter, {rect.left(), rect.top(), rect.width(), half}, from, to, kGradientDown);
    DrawGradient(painter, {rect.left(), rect.top() + half, rect.width(), rect.height() - half}, to,
                 from, kGradientDown);
    return;
  }
  const int last = std::max(rect.height() - 1, 1);
  for (int i = 0; i < rect.height(); ++i) {
    const auto mix = [i, last](int a, int b) { return a + (b - a) * i / last; };
    painter.fillRect(rect.left(), rect.top() + i, rect.width(), 1,
                     QColor(mix(from.red(), to.red()), mix(from.green(), to.green()),
                            mix(from.blue(), to.blue())));
  }
}

bool Displayable(const QWidget& control) {
  return control.isVisible();
}

}  // namespace brivolant::InterfaceKitSupport
