// SPDX-License-Identifier: MIT
// Makes the textures of the Texture effect: tiles without seams, as if photographed, the same on
// every machine. The effect embosses them, so what counts is relief of a few pixels.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>
#include <vector>

#include "platform/codecs/ImageCodecs.h"
#include "platform/files/FolderItem.h"
#include "platform/pictures/Parallel.h"
#include "platform/pictures/Picture.h"
#include "tools/textures/Field.h"

namespace brivolant::textures {
namespace {

double Smooth(double low, double high, double value) {
  const double t = std::clamp((value - low) / (high - low), 0.0, 1.0);
  return t * t * (3 - 2 * t);
}

Field White(std::uint32_t seed) {
  Field field;
  field.Fill([&](int x, int y) {
    // Twelve chances make a normal one.
    double sum = -6;
    for (std::uint32_t i = 0; i < 12; ++i) {
      sum += Hash(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), seed * 13 + i);
    }
    return sum;
  });
  return field;
}

/// Plain weave of `threads` threads each way; `unevenness` of their widths and `slub` along them.
Field Weave(int threads, double unevenness, double slub, std::uint32_t seed) {
  Field fibreAcross = White(seed);
  fibreAcross.BlurAlong(true, 6, 2);
  fibreAcross.Normalize();
  Field fibreDown = White(seed + 1);
  fibreDown.BlurAlong(false, 6, 2);
  fibreDown.Normalize();
  const double pitch = 1.0 * kSide / threads;
  Field cloth;
  cloth.Fill([&](int x, int y) {
    const double wx = x + unevenness * pitch * Noise(x, y, threads / 2, 6, seed + 2);
    const double wy = y + unevenness * pitch * Noise(x, y, 6, threads / 2, seed + 3);
    const double u = wx / pitch;
    const double v = wy / pitch;
    const auto column = static_cast<int>(std::floor(u));
    const auto row = static_cast<int>(std::floor(v));
    const double fu = 2 * (u - column) - 1;
    const double fv = 2 * (v - row) - 1;
    const auto thickness = [&](int thread, double along, std::uint32_t s) {
      const auto own = static_cast<std::uint32_t>(thread & (threads - 1));
      return 0.82 + slub * (Hash(own, 5, s) - 0.5) +
             slub * 0.8 * Noise(along, own * 31.0, 24, 1024, s);
    };
    const double tu = thickness(column, y, seed + 4);
    const double tv = thickness(row, x, seed + 5);
    const auto round = [](double side, double thick) {
      const double r = side / std::clamp(thick, 0.35, 1.0);
      return std::sqrt(std::max(1 - r * r, 0.0));
    };
    const bool over = ((column + row) & 1) == 0;
    const double rise = 0.42;
    const double down = round(fu, tu) * (over ? 1 - rise * fv * fv : 0.55 - rise * (1 - fv * fv)) +
                        0.06 * fibreDown.At(x, y);
    const double across =
        round(fv, tv) * (over ? 0.55 - rise * (1 - fu * fu) : 1 - rise * fu * fu) +
        0.06 * fibreAcross.At(x, y);
    return std::max({down, across, 0.0});
  });
  return cloth;
}

Field Canvas() {
  Field cloth = Weave(64, 0.10, 0.18, 11);
  cloth.Blur(1, 1);
  return cloth;
}

Field Linen() {
  return Weave(128, 0.28, 0.55, 23);
}

Field Paper() {
  Field grain = White(31);
  grain.Blur(1, 2);
  grain.Normalize();
  Field fibres;
  Chance chance(32);
  for (int i = 0; i < 2600; ++i) {
    double x = chance.Between(0, kSide);
    double y = chance.Between(0, kSide);
    double angle = chance.Between(0, 2 * std::numbers::pi);
    const double turn = chance.Between(-0.25, 0.25);
    std::vector<std::pair<double, double>> points;
    for (int k = 0; k < 8; ++k) {
      points.emplace_back(x, y);
      x += 5 * std::cos(angle);
      y += 5 * std::sin(angle);
      angle += turn;
    }
    fibres.Stroke(points, chance.Between(0.6, 1.6), chance.Between(0.3, 1));
  }
  fibres.Blur(1, 1);
  Field paper;
  paper.Fill([&](int x, int y) {
    const double tooth =
        std::abs(Noise(x, y, 96, 96, 33)) + 0.6 * std::abs(Noise(x, y, 200, 200, 34));
    return 0.9 * tooth + 0.10 * grain.At(x, y) + 0.22 * fibres.At(x, y) +
           0.10 * Octaves(x, y, 6, 6, 3, 0.5, 35);
  });
  return paper;
}

Field BrushedMetal() {
  Field fine = White(41);
  fine.BlurAlong(true, 24, 2);
  fine.BlurAlong(false, 1, 2);
  fine.Normalize();
  Field coarse = White(42);
  coarse.BlurAlong(true, 90, 2);
  coarse.BlurAlong(false, 1, 1);
  coarse.Normalize();
  Field marks;
  Chance chance(43);
  for (int i = 0; i < 500; ++i) {
    const double x = chance.Between(0, kSide);
    const double y = chance.Between(0, kSide);
    const double length = chance.Between(40, 320);
    marks.Stroke({{x, y}, {x + length, y + chance.Between(-1.5, 1.5)}}, chance.Between(0.5, 1.1),
                 chance.Between(0.2, 1));
  }
  Field metal;
  metal.Fill([&](int x, int y) {
    return 0.55 * fine.At(x, y) + 0.45 * coarse.At(x, y) + 1.2 * marks.At(x, y) +
           0.35 * Noise(x, y, 2, 3, 44);
  });
  return metal;
}

Field Stone() {
  Field grain = White(51);
  grain.Blur(1, 1);
  grain.Normalize();
  Field stone;
  stone.Fill([&](int x, int y) {
    const double wx = x + 26 * Octaves(x, y, 6, 6, 4, 0.55, 52);
    const double wy = y + 26 * Octaves(x, y, 6, 6, 4, 0.55, 53);
    const Cell slab = Cells(wx, wy, 7, 7, 54);
    const Cell gravel = Cells(x, y, 90, 90, 55);
    const double vein = 1 - Smooth(0, 0.05, slab.second - slab.first);
    return 0.9 * Octaves(wx, wy, 8, 8, 6, 0.58, 56) + 0.35 * (gravel.id - 0.5) +
           0.3 * (slab.id - 0.5) + 0.07 * grain.At(x, y) - 1.1 * vein;
  });
  return stone;
}

Field FilmGrain() {
  // Clumps of silver of two sizes, thicker in some places than in others.
  Field fine = White(61);
  fine.Blur(1, 1);
  fine.Normalize();
  Field clumps = White(62);
  clumps.Blur(1, 3);
  clumps.Normalize();
  Field grain;
  grain.Fill([&](int x, int y) {
    const double thick = 1 + 0.25 * Octaves(x, y, 10, 10, 3, 0.5, 63);
    return thick * (0.6 * fine.At(x, y) + 0.5 * clumps.At(x, y));
  });
  return grain;
}

Field Scratches() {
  Field lines;
  Chance chance(71);
  for (int i = 0; i < 150; ++i) {
    // Film runs from top to bottom, and so do most of its scratches.
    double x = chance.Between(0, kSide);
    double y = chance.Between(0, kSide);
    const bool stray = chance.Next() < 0.3;
    double angle = stray ? chance.Between(0, 2 * std::numbers::pi)
                         : std::numbers::pi / 2 + chance.Between(-0.05, 0.05);
    const double turn = stray ? chance.Between(-0.08, 0.08) : chance.Between(-0.004, 0.004);
    const double step = stray ? 8 : 26;
    const double level = std::pow(chance.Next(), 1.6);
    std::vector<std::pair<double, double>> points;
    const int count = static_cast<int>(chance.Between(4, stray ? 14 : 34));
    for (int k = 0; k < count; ++k) {
      points.emplace_back(x, y);
      x += step * std::cos(angle);
      y += step * std::sin(angle);
      angle += turn + chance.Between(-0.01, 0.01);
    }
    lines.Stroke(points, chance.Between(0.5, 2.0), 0.25 + 0.75 * level);
  }
  Field grain = White(72);
  grain.Blur(1, 1);
  grain.Normalize();
  Field worn;
  worn.Fill([&](int x, int y) {
    // A scratch breaks off where it was shallow.
    const double depth = Smooth(-0.5, 0.2, Octaves(x, y, 24, 12, 3, 0.6, 73));
    return 3.2 * lines.At(x, y) * depth + 0.05 * grain.At(x, y) +
           0.15 * Octaves(x, y, 4, 4, 3, 0.5, 74);
  });
  return worn;
}

Field Wood() {
  Field pores;
  Chance chance(81);
  for (int i = 0; i < 5200; ++i) {
    const double x = chance.Between(0, kSide);
    const double y = chance.Between(0, kSide);
    const double length = chance.Between(8, 46);
    pores.Stroke({{x, y}, {x + length, y + chance.Between(-0.8, 0.8)}}, chance.Between(0.6, 1.5),
                 chance.Between(0.3, 1));
  }
  Field fibre = White(82);
  fibre.BlurAlong(true, 30, 2);
  fibre.Normalize();
  Field wood;
  wood.Fill([&](int x, int y) {
    // Boards are cut along the rings: long ovals that a knot's neighbourhood bends.
    const double bend = 60 * Noise(x, y, 1, 3, 83) + 24 * Noise(x, y, 2, 6, 84) +
                        5 * Octaves(x, y, 4, 24, 3, 0.5, 85);
    const double ring = (y + bend) * 20 / kSide;
    const double phase = ring - std::floor(ring);
    // Early wood grows wide and light, late wood narrow and dark, with a sharp end.
    const double tone = Smooth(0, 0.78, phase) * (1 - Smooth(0.86, 0.995, phase));
    return -1.1 * tone + 0.34 * fibre.At(x, y) - 1.0 * pores.At(x, y) * (0.35 + 0.65 * tone) +
           0.3 * Noise(x, y, 2, 10, 86);
  });
  return wood;
}

Field Plaster() {
  Field grain = White(91);
  grain.Blur(1, 1);
  grain.Normalize();
  Field plaster;
  plaster.Fill([&](int x, int y) {
    // Trowel marks: layers that overlap, each with an edge.
    double height = 0;
    for (std::uint32_t layer = 0; layer < 4; ++layer) {
      const double wx = x + 40 * Octaves(x, y, 5, 5, 3, 0.5, 92 + layer);
      const double wy = y + 40 * Octaves(x, y, 5, 5, 3, 0.5, 97 + layer);
      const double level = Octaves(wx, wy, 4 + static_cast<int>(layer), 7, 3, 0.5, 103 + layer);
      height += 0.45 * Smooth(-0.06, 0.06, level) + 0.3 * level;
    }
    return height + 0.12 * grain.At(x, y) + 0.28 * Octaves(x, y, 40, 40, 4, 0.6, 109);
  });
  return plaster;
}

Field Leather() {
  Field pores = White(111);
  pores.Blur(1, 1);
  pores.Normalize();
  Field leather;
  leather.Fill([&](int x, int y) {
    const double wx = x + 9 * Octaves(x, y, 16, 16, 3, 0.5, 112);
    const double wy = y + 9 * Octaves(x, y, 16, 16, 3, 0.5, 113);
    const Cell large = Cells(wx, wy, 72, 62, 114);
    const Cell small = Cells(wx, wy, 150, 140, 115);
    // Pebbles with soft shoulders, creases between them, and finer ones across.
    const double crease = Smooth(0.0, 0.26, large.second - large.first);
    const double fold = Smooth(0.0, 0.3, small.second - small.first);
    return 0.9 * crease - 0.9 * large.first * large.first + 0.3 * fold + 0.09 * pores.At(x, y) +
           0.5 * Octaves(x, y, 5, 5, 3, 0.5, 116);
  });
  return leather;
}

Field Rain() {
  Field streaks;
  Chance chance(121);
  for (int i = 0; i < 1500; ++i) {
    const double x = chance.Between(0, kSide);
    const double y = chance.Between(0, kSide);
    // What falls near the camera is long, wide and clear.
    const double near = std::pow(chance.Next(), 3);
    const double length = 22 + 130 * near;
    const double lean = 0.16 + chance.Between(-0.015, 0.015);
    const double level = 0.25 + 0.75 * near;
    constexpr int kParts = 8;
    for (int k = 0; k < kParts; ++k) {
      const double a = 1.0 * k / kParts;
      const double b = 1.0 * (k + 1) / kParts;
      // It fades in at its top.
      streaks.Stroke(
          {{x - lean * length * a, y + length * a}, {x - lean * length * b, y + length * b}},
          0.7 + 1.9 * near, level * b);
    }
  }
  Field mist;
  mist.Fill([&](int x, int y) {
    return 3.0 * streaks.At(x, y) + 0.2 * Octaves(x, y, 4, 3, 4, 0.5, 122);
  });
  return mist;
}

Field Dust() {
  Field specks;
  Chance chance(131);
  for (int i = 0; i < 3400; ++i) {
    const double x = chance.Between(0, kSide);
    const double y = chance.Between(0, kSide);
    const double size = 0.5 + 4.5 * std::pow(chance.Next(), 7);
    specks.Stroke(
        {{x, y}, {x + chance.Between(-size, size) / 2, y + chance.Between(-size, size) / 2}}, size,
        chance.Between(0.25, 1));
  }
  Field hairs;
  for (int i = 0; i < 46; ++i) {
    double x = chance.Between(0, kSide);
    double y = chance.Between(0, kSide);
    double angle = chance.Between(0, 2 * std::numbers::pi);
    double turn = chance.Between(-0.2, 0.2);
    std::vector<std::pair<double, double>> points;
    const int count = static_cast<int>(chance.Between(6, 26));
    for (int k = 0; k < count; ++k) {
      points.emplace_back(x, y);
      x += 4 * std::cos(angle);
      y += 4 * std::sin(angle);
      angle += turn;
      turn += chance.Between(-0.05, 0.05);
    }
    hairs.Stroke(points, chance.Between(0.6, 1.3), chance.Between(0.3, 0.9));
  }
  Field veil = White(132);
  veil.Blur(1, 1);
  veil.Normalize();
  Field dust;
  dust.Fill([&](int x, int y) {
    return 3.4 * std::max(specks.At(x, y), hairs.At(x, y)) + 0.05 * veil.At(x, y) +
           0.2 * Octaves(x, y, 5, 5, 4, 0.5, 133);
  });
  return dust;
}

Field Concrete() {
  Field grain = White(141);
  grain.Blur(1, 1);
  grain.Normalize();
  Field concrete;
  concrete.Fill([&](int x, int y) {
    const Cell hole = Cells(x, y, 30, 30, 142);
    const double size = 0.02 + 0.17 * std::pow(hole.id, 9);
    const double pit = 1 - Smooth(size * 0.6, size, hole.first);
    const Cell sand = Cells(x, y, 150, 150, 143);
    return 0.55 * Octaves(x, y, 5, 5, 6, 0.6, 144) + 0.32 * (sand.id - 0.5) +
           0.22 * grain.At(x, y) - 2.2 * pit;
  });
  return concrete;
}

Field CrumpledPaper() {
  Field fibres = White(151);
  fibres.Blur(1, 1);
  fibres.Normalize();
  Field height;
  height.Fill([&](int x, int y) {
    // Facets: the largest of many tilted planes, at several sizes, each with sharp folds.
    double sum = 0;
    double strength = 1;
    for (int i = 0; i < 4; ++i) {
      const int cells = 3 << i;
      const double wx = x + 14 * Noise(x, y, cells, cells, 152 + static_cast<std::uint32_t>(i));
      const double wy = y + 14 * Noise(x, y, cells, cells, 157 + static_cast<std::uint32_t>(i));
      const Cell facet = Cells(wx, wy, cells, cells, 162 + static_cast<std::uint32_t>(i));
      sum += strength * (facet.second - facet.first);
      strength *= 0.55;
    }
    return sum;
  });
  height.Blur(1, 1);
  Field paper;
  paper.Fill([&](int x, int y) {
    // Lit from the top left.
    const double slope = height.At(x + 1, y + 1) - height.At(x - 1, y - 1);
    return -24 * slope + 0.5 * height.At(x, y) + 0.07 * fibres.At(x, y);
  });
  return paper;
}

struct Recipe {
  const char* name;
  Field (*make)();
  /// Level of the mean, and of one deviation, of 255.
  double mean;
  double contrast;
  /// Red, green and blue of the material, about 1 each.
  std::array<double, 3> tint;
};

constexpr std::array<Recipe, 14> kRecipes{
    {{"Brushed Metal", BrushedMetal, 150, 12, {0.99, 1.0, 1.02}},
     {"Canvas", Canvas, 160, 24, {1.02, 1.0, 0.95}},
     {"Concrete", Concrete, 146, 20, {1.0, 1.0, 0.98}},
     {"Crumpled Paper", CrumpledPaper, 176, 30, {1.01, 1.0, 0.97}},
     {"Dust", Dust, 62, 28, {1.0, 1.0, 1.0}},
     {"Film Grain", FilmGrain, 128, 14, {1.0, 1.0, 1.0}},
     {"Leather", Leather, 112, 22, {1.08, 0.98, 0.88}},
     {"Linen", Linen, 156, 26, {1.02, 1.0, 0.94}},
     {"Paper", Paper, 190, 16, {1.01, 1.0, 0.96}},
     {"Plaster", Plaster, 176, 24, {1.01, 1.0, 0.97}},
     {"Rain", Rain, 84, 26, {0.98, 1.0, 1.03}},
     {"Scratches", Scratches, 62, 28, {1.0, 1.0, 1.0}},
     {"Stone", Stone, 134, 28, {1.0, 0.99, 0.97}},
     {"Wood", Wood, 136, 20, {1.16, 0.98, 0.76}}}};

bool Write(const Recipe& recipe, const FolderItem& folder) {
  Field field = recipe.make();
  field.Normalize();
  Picture picture = Picture::Uninitialized(kSide, kSide);
  const Pixels pixels = picture.Edit();
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      std::uint8_t* p = pixels.Row(y) + std::ptrdiff_t{4} * x;
      const double level = recipe.mean + recipe.contrast * field.At(x, y);
      for (std::size_t k = 0; k < 3; ++k) {
        p[2 - k] = static_cast<std::uint8_t>(
            std::lround(std::clamp(level * recipe.tint.at(k), 0.0, 255.0)));
      }
      p[3] = 255;
    }
  }
  constexpr double kQuality = 0.92;
  const std::array<EncodeImage, 1> image{{{picture, kQuality}}};
  const FolderItem file = folder.Child(std::string(recipe.name) + ".jpg");
  const std::string error = EncodeImageFile(file, "public.jpeg", image);
  if (error.empty()) return true;
  std::fprintf(stderr, "%s\n", error.c_str());
  return false;
}

}  // namespace
}  // namespace brivolant::textures

int main(int argc, char** argv) {
  using namespace brivolant;
  using namespace brivolant::textures;
  if (argc != 2) {
    std::fprintf(stderr, "usage: make-textures FOLDER\n");
    return 2;
  }
  const FolderItem folder(argv[1]);
  std::array<bool, kRecipes.size()> done{};
  ParallelRows(static_cast<int>(kRecipes.size()), 1, [&](int from, int to) {
    for (int i = from; i < to; ++i) {
      const auto at = static_cast<std::size_t>(i);
      done.at(at) = Write(kRecipes.at(at), folder);
    }
  });
  return std::all_of(done.begin(), done.end(), [](bool one) { return one; }) ? 0 : 1;
}
