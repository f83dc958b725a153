// SPDX-License-Identifier: MIT
#include "effects/text/ScaleableTextObject.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QTextBoundaryFinder>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <limits>

#include "effects/text/CaptionShapes.h"
#include "engine/pictures/AdvancedGraphics.h"
#include "platform/values/Whole.h"

namespace brivolant {
namespace {

constexpr int kBaseSize = 12;
/// The frame lies this far outside the box, and its corners reach a little farther.
constexpr double kFrame = 10;
constexpr double kOutside = 13;
constexpr double kCorner = 10;

QColor ToQt(Color color) {
  return {color.Red, color.Green, color.Blue};
}

/// Positions in UTF-16 at which a character of the text starts, and its end.
std::vector<int> CharactersOf(const QString& text) {
  std::vector<int> starts{0};
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  for (auto at = finder.toNextBoundary(); at > 0; at = finder.toNextBoundary()) {
    starts.push_back(static_cast<int>(at));
  }
  return starts;
}

/// The value of the HSV model is below a half: the panel behind the text is then white, else black.
bool IsDark(Color color) {
  return std::max({color.Red, color.Green, color.Blue}) < 128;
}

}  // namespace

bool ScaleableTextObject::IsBlank(const std::string& character) {
  return character == " " || character == "\r" || character == "\n" || character == "\t";
}

struct ScaleableTextObject::Lines {
  struct Line {
    std::unique_ptr<QTextLayout> layout;
    double width = 0;
    std::vector<int> characters;
  };
  std::vector<Line> all;
  double height = 1;
  double ascent = 1;
};

/// Where the text lies on a picture: the box in whole pixels, the scale of the base size, and the
/// first baseline.
struct ScaleableTextObject::Layout {
  double x;
  double y;
  double w;
  double h;
  double ratio;
  double baseline;

  double LineLeft(const Lines::Line& line) const { return x + (w - line.width * ratio) / 2; }
};

ScaleableTextObject::ScaleableTextObject() : lines_(std::make_unique<Lines>()) {
  RecalculateVitals();
}
ScaleableTextObject::~ScaleableTextObject() = default;

void ScaleableTextObject::Font(const std::string& name) {
  mFont = name;
  RecalculateVitals();
}

void ScaleableTextObject::Text(const std::string& text) {
  QString clean = QString::fromStdString(text);
  clean.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  clean.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  iText = clean.toStdString();
  line_.clear();
  for (const QString& line : clean.split(QLatin1Char('\n'))) line_.push_back(line.toStdString());
  boundaries_.assign(1, 0);
  int before = 0;
  for (const int at : CharactersOf(clean)) {
    if (at == 0) continue;
    const auto bytes = clean.mid(before, at - before).toUtf8().size();
    boundaries_.push_back(boundaries_.back() + static_cast<std::size_t>(bytes));
    before = at;
  }
  Select(mSelstart, mSellength);
  RecalculateVitals();
}

void ScaleableTextObject::RecalculateVitals() {
  QFont font(QString::fromStdString(mFont));
  font.setPixelSize(kBaseSize);
  // Letters keep their proportions at every size.
  font.setHintingPreference(QFont::PreferNoHinting);
  const QFontMetricsF metrics(font);
  lines_->height = metrics.height();
  lines_->ascent = metrics.ascent();
  lines_->all.clear();
  baseWidth_ = 0;
  for (const std::string& text : line_) {
    Lines::Line& line = lines_->all.emplace_back();
    const QString shown = QString::fromStdString(text);
    line.layout = std::make_unique<QTextLayout>(shown, font);
    line.layout->setCacheEnabled(true);
    line.layout->beginLayout();
    QTextLine only = line.layout->createLine();
    if (only.isValid()) {
      only.setNumColumns(std::numeric_limits<int>::max());
      line.width = only.naturalTextWidth();
    }
    line.layout->endLayout();
    line.characters = CharactersOf(shown);
    baseWidth_ = std::max(baseWidth_, line.width);
  }
  baseHeight_ = lineCount() * lines_->height;
}

void ScaleableTextObject::Select(int start, int length) {
  mSelstart = std::clamp(start, 0, TextLength());
  mSellength = std::clamp(length, 0, TextLength() - mSelstart);
}

std::string ScaleableTextObject::Part(int start, int length) const {
  const int from = std::clamp(start, 0, TextLength());
  const int to = std::clamp(start + length, from, TextLength());
  const std::size_t first = boundaries_[static_cast<std::size_t>(from)];
  return iText.substr(first, boundaries_[static_cast<std::size_t>(to)] - first);
}

int ScaleableTextObject::Replace(int start, int length, const std::string& text) {
  const std::string before = Part(0, start);
  Text(before + text + Part(start + length, TextLength()));
  // An accent that was typed joins the character before it: the position is behind both.
  const std::size_t end = QString::fromStdString(before + text).toUtf8().size();
  const auto after = std::lower_bound(boundaries_.begin(), boundaries_.end(), end);
  return static_cast<int>(after - boundaries_.begin());
}

ScaleableTextObject::Layout ScaleableTextObject::LayoutFor(const Pair& source) const {
  Layout at{std::trunc(Left * source.Left),     std::trunc(Top * source.Right),
            std::trunc(Width * source.Left),    std::trunc(Height * source.Right),
            std::numeric_limits<double>::max(), 0};
  if (baseWidth_ > 0) at.ratio = at.w / baseWidth_;
  if (at.h < baseHeight_ * at.ratio) at.ratio = at.h / baseHeight_;
  at.ratio = std::max(at.ratio, 1.0 / kBaseSize);
  at.baseline = at.y + (at.h - baseHeight_ * at.ratio) / 2 + lines_->ascent * at.ratio;
  return at;
}

void ScaleableTextObject::DrawFrame(QPainter& painter, const Layout& at, const Pair& source,
                                    double marks) const {
  AdvancedGraphics g(painter, static_cast<int>(source.Left), static_cast<int>(source.Right));
  const auto rect = [&](double x, double y, double w, double h) {
    return AdvancedGraphicsModule::MakeCGRect(static_cast<float>(x), static_cast<float>(y),
                                              static_cast<float>(w), static_cast<float>(h));
  };
  // Corners of `size`, `out` units outside the box.
  const auto corners = [&](double size, double out) {
    for (const double x : {at.x - out * marks, at.x + at.w + (out - size) * marks}) {
      for (const double y : {at.y - out * marks, at.y + at.h + (out - size) * marks}) {
        g.DrawOval(rect(x, y, size * marks, size * marks), kFill);
      }
    }
  };
  const auto frame = [&](double out) {
    return rect(at.x - out * marks, at.y - out * marks, at.w + 2 * out * marks,
                at.h + 2 * out * marks);
  };
  g.PenThickness(3 * marks);
  g.SetStrokeColor(kWhite, 1);
  g.SetFillColor(IsDark(TextColor) ? kWhite : kBlack, 1);
  g.DrawRect(frame(kFrame), kFillAndStroke);
  g.SetFillColor(kWhite, 1);
  corners(kCorner, kOutside);
  g.PenThickness(std::max(marks / 2, 0.5));
  g.SetStrokeColor(kBlack, 1);
  g.SetFillColor(kBlack, 1);
  g.DrawRect(frame(kFrame - 1), kStroke);
  corners(kCorner - 2, kOutside - 1);
}

void ScaleableTextObject::Draw(QPainter& painter, const Pair& source, bool editing, bool caret,
                               double marks) {
  const Layout at = LayoutFor(source);
  size_ = static_cast<float>(kBaseSize * at.ratio);
  if (Caption > 0) {
    // The shape stands off by a share of the picture, alike at every size.
    constexpr double kReference = 1000;
    const int out = static_cast<int>(
        std::lround(std::max(kFrame * std::max(source.Left, source.Right) / kReference, 1.0)));
    AdvancedGraphics g(painter, static_cast<int>(source.Left), static_cast<int>(source.Right));
    DrawCaption(g, Whole(at.x) - out, Whole(at.y) - out, Whole(at.w) + 2 * out,
                Whole(at.h) + 2 * out, Caption - 1);
  }
  if (editing) DrawFrame(painter, at, source, marks);
  if (!editing && TextLength() == 0) {
    AdvancedGraphics g(painter, static_cast<int>(source.Left), static_cast<int>(source.Right));
    g.PenThickness(2);
    g.SetPenDashes(10, 10);
    g.SetStrokeColor(kBlack, 0.5);
    g.DrawRoundRect(
        AdvancedGraphicsModule::MakeCGRect(static_cast<float>(at.x), static_cast<float>(at.y),
                                           static_cast<float>(at.w), static_cast<float>(at.h)),
        at.h / 4, kStroke);
  }
  const Pair from = SelStartLineChar();
  const Pair to = SelEndLineChar();
  for (std::size_t i = 0; i < lines_->all.size(); ++i) {
    const Lines::Line& line = lines_->all[i];
    QList<QTextLayout::FormatRange> selections;
    const auto number = static_cast<double>(i);
    if (editing && mSellength > 0 && number >= from.Left && number <= to.Left) {
      const auto utf16 = [&line](double character) {
        return line
            .characters[std::min(static_cast<std::size_t>(character), line.characters.size() - 1)];
      };
      const int first = number == from.Left ? utf16(from.Right) : 0;
      const int last = number == to.Left ? utf16(to.Right) : line.characters.back();
      QTextCharFormat format;
      format.setBackground(QGuiApplication::palette().highlight());
      selections.append({first, last - first, format});
    }
    painter.save();
    painter.setPen(ToQt(TextColor));
    painter.translate(at.LineLeft(line),
                      at.baseline + (number * lines_->height - lines_->ascent) * at.ratio);
    painter.scale(at.ratio, at.ratio);
    line.layout->draw(&painter, {}, selections);
    painter.restore();
  }
  if (editing && caret && mSellength == 0) {
    const Point foot = XYFromPoistion(source, mSelstart);
    painter.setPen(
        QPen(IsDark(TextColor) ? Qt::black : Qt::white, 2 * marks, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(foot.x, foot.y), QPointF(foot.x, foot.y - lines_->ascent * at.ratio));
  }
}

Pair ScaleableTextObject::LineCharFromPosition(int position) const {
  int rest = std::max(position, 0);
  for (std::size_t i = 0; i < lines_->all.size(); ++i) {
    const int length = static_cast<int>(lines_->all[i].characters.size()) - 1;
    if (rest <= length || i + 1 == lines_->all.size()) {
      return {static_cast<double>(i), static_cast<double>(std::min(rest, length))};
    }
    rest -= length + 1;
  }
  return {0, 0};
}

Pair ScaleableTextObject::LineDimensions(int line) const {
  int start = 0;
  for (int i = 0; i < lineCount(); ++i) {
    const int length =
        static_cast<int>(lines_->all[static_cast<std::size_t>(i)].characters.size()) - 1;
    if (i == line) return {static_cast<double>(start), static_cast<double>(length)};
    start += length + 1;
  }
  return {static_cast<double>(TextLength()), 0};
}

Pair ScaleableTextObject::WordDimensions(int position) const {
  int start = std::clamp(position, 0, TextLength());
  int end = start;
  while (start > 0 && !IsBlank(Part(start - 1, 1))) --start;
  while (end < TextLength() && !IsBlank(Part(end, 1))) ++end;
  return {static_cast<double>(start), static_cast<double>(end - start)};
}

int ScaleableTextObject::PositionFromXY(const Pair& source, float x, float y) const {
  const Layout at = LayoutFor(source);
  const double top = at.baseline - lines_->ascent * at.ratio;
  const double band = lines_->height * at.ratio;
  const double down = y * source.Right - top;
  if (down < 0) return 0;
  const int number = Whole(down / band);
  if (number >= lineCount()) return TextLength();
  const Lines::Line& line = lines_->all[static_cast<std::size_t>(number)];
  const int start = static_cast<int>(LineDimensions(number).Left);
  if (line.layout->lineCount() == 0) return start;
  const double across = (x * source.Left - at.LineLeft(line)) / at.ratio;
  const int unit = line.layout->lineAt(0).xToCursor(across, QTextLine::CursorOnCharacter);
  const auto found = std::upper_bound(line.characters.begin(), line.characters.end(), unit);
  return start + static_cast<int>(found - line.characters.begin()) - 1;
}

Point ScaleableTextObject::XYFromPoistion(const Pair& source, int position) const {
  const Layout at = LayoutFor(source);
  const Pair place = LineCharFromPosition(position);
  const Lines::Line& line = lines_->all[static_cast<std::size_t>(place.Left)];
  double across = 0;
  if (line.layout->lineCount() > 0) {
    across =
        line.layout->lineAt(0).cursorToX(line.characters[static_cast<std::size_t>(place.Right)]);
  }
  return {at.LineLeft(line) + across * at.ratio,
          at.baseline + place.Left * lines_->height * at.ratio};
}

void ScaleableTextObject::MoveCursorDown() {
  const Pair place = SelStartLineChar();
  Select(mSelstart + static_cast<int>(LineDimensions(static_cast<int>(place.Left)).Right) + 1, 0);
}

void ScaleableTextObject::MoveCursorUp() {
  const Pair place = SelStartLineChar();
  Select(mSelstart - static_cast<int>(LineDimensions(static_cast<int>(place.Left)).Right) - 1, 0);
}

bool ScaleableTextObject::ReadsLeftward(int position) const {
  const auto number = static_cast<std::size_t>(LineCharFromPosition(position).Left);
  return QString::fromStdString(line_[number]).isRightToLeft();
}

int ScaleableTextObject::isWithin(const Pair& source, float x, float y, double marks) const {
  if (x >= Left && x <= Left + Width && y >= Top && y <= Top + Height) return kHitText;
  const double out = kOutside * marks;
  const double corner = kCorner * marks;
  const double w = Width * source.Left + 2 * out;
  const double h = Height * source.Right + 2 * out;
  const double px = x * source.Left - (Left * source.Left - out);
  const double py = y * source.Right - (Top * source.Right - out);
  if (px < 0 || py < 0 || px > w || py > h) return kHitNothing;
  const bool left = px <= corner;
  const bool right = px >= w - corner;
  if (py <= corner && (left || right)) return left ? kHitTopLeft : kHitTopRight;
  if (py >= h - corner && (left || right)) return left ? kHitBottomLeft : kHitBottomRight;
  return kHitFrame;
}

Dictionary ScaleableTextObject::Settings() const {
  Dictionary settings;
  settings.Value("Font", mFont);
  settings.Value("Height", Height.Stored());
  settings.Value("Left", Left.Stored());
  settings.Value("Text", iText);
  settings.Value("TextColor", TextColor);
  settings.Value("Top", Top.Stored());
  settings.Value("Width", Width.Stored());
  settings.Value("Caption", Caption.Stored());
  return settings;
}

void ScaleableTextObject::Settings(const Dictionary& settings) {
  const auto fraction = [&settings](RangedNumber<float>& number, const char* key, float fallback) {
    number.Read(settings.Lookup(key, fallback), fallback);
  };
  mFont = settings.Lookup("Font", "Arial").ToText();
  fraction(Height, "Height", 0.5F);
  fraction(Left, "Left", 0.25F);
  fraction(Top, "Top", 0.25F);
  fraction(Width, "Width", 0.5F);
  TextColor = settings.Lookup("TextColor", kBlack).ToColor();
  Caption.Read(settings.Lookup("Caption", 0), 0);
  Text(settings.Lookup("Text", "").ToText());
}

}  // namespace brivolant
