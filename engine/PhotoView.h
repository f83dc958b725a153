// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRect>
#include <optional>
#include <vector>

namespace brivolant {

/// Where the photo lies on the display: fitted into it, or at a scale and about a point that the
/// user chose. A value that knows no window. Lengths on the display are pixels of the screen.
class PhotoView {
 public:
  /// Pixels of the screen for one of the photo, at most; more only where fitting asks for it.
  static constexpr double kLargest = 8;

  /// What there is to lay out.
  struct Content {
    /// Of the display, and pixels of the screen in one unit of the desktop's coordinates.
    QSize Display;
    double PixelRatio = 1;
    /// The finished photo at its full size.
    QSize Photo;
    /// The rendered preview of it: shown pixel by pixel where it touches the margin.
    QSize Preview;
    /// The picture before the effects stands beside, and its preview's size.
    bool Beside = false;
    QSize Before;
    friend bool operator==(const Content&, const Content&) = default;
  };
  /// Lays out anew. Scale and point stay as far as they can; a photo of another size is fitted.
  void Show(const Content& content);

  bool Fits() const { return !scale_; }
  /// Pixels of the screen for one of the photo; 0 without a photo.
  double Scale() const;
  /// The whole photo; it reaches beyond the display where it is enlarged.
  QRect Photo() const { return photo_; }
  /// The whole picture before the effects; empty when it is not wanted. Enlarged it shows the same
  /// part at the same scale.
  QRect Before() const { return before_; }
  /// The parts of the display that either may take.
  QRect PhotoArea() const;
  QRect BeforeArea() const;

  void Fit();
  /// About the middle. A scale at which all of the photo is to be seen fits it, unless it is
  /// smaller than the display.
  void ZoomTo(double scale);
  /// The same so that what lies under `about` stays there, as far as no margin would open beside
  /// the photo.
  void ZoomTo(double scale, const QPointF& about);
  /// By a factor; 1:1 is not passed without a stop.
  void ZoomBy(double factor, const QPointF& about);
  /// To the next of the usual scales, about the middle.
  void StepIn();
  void StepOut();
  void Pan(const QPointF& by);

  /// A place on the display as fractions of the photo; beyond 0 to 1 beside it, (-1, -1) without a
  /// photo.
  QPointF FractionsAt(const QPointF& place) const;
  /// True if the photo is to be seen there.
  bool Shows(const QPointF& place) const;

 private:
  double FitScale() const;
  bool FitsAt(double scale) const;
  void Enlarge(double scale);
  void Move(const QPointF& by);
  /// The scales at which StepIn and StepOut halt, in order.
  std::vector<double> Stops() const;
  void LayOutFitted();
  void LayOutEnlarged();
  /// True if the place belongs to the picture before the effects.
  bool OverBefore(const QPointF& place) const;
  int Pixels(int units) const;

  Content content_;
  /// Nothing while the photo is fitted.
  std::optional<double> scale_;
  /// What is in the middle of the area, in fractions of the photo.
  QPointF middle_{0.5, 0.5};
  /// A zoom that goes on about the same place keeps what lay there at its beginning, wherever the
  /// margins have pushed it meanwhile.
  struct Anchor {
    QPointF Place;
    QPointF Kept;
  };
  std::optional<Anchor> anchor_;
  QRect photo_;
  QRect before_;
};

}  // namespace brivolant
