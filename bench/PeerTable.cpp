// SPDX-License-Identifier: MIT
// Every claim of speed and memory as a row: our time, the peer's time in the same run, their
// ratio, and the ratio that is promised. The program changes nothing when a row misses its aim; it
// says so.
#include <QGuiApplication>
#include <array>
#include <cstdio>
#include <cstring>
#include <string>

#include "Peers.h"
#include "app/core/ApplicationServices.h"
#include "effects/FindEffect.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/BlendEffect.h"
#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant::bench {
namespace {

constexpr int kRounds = 7;

struct Context {
  explicit Context(const std::string& jpeg) : file(jpeg) {
    picture = std::move(Decoded()->Pixels);
    other = InvertEffect().Apply(SharedPictureEffects::Flip(picture, 0));
    bytes = std::size_t{4} * picture.Width() * picture.Height();
    from.resize(bytes);
    to.resize(bytes);
  }
  Expected<DecodedImage> Decoded() const {
    auto source = ImageSource::Open(file);
    auto image = source ? (*source)->Decode(0) : Expected<DecodedImage>::Failure(source.error);
    if (!image) GiveUp(image.error);
    return image;
  }
  Work Copy() {
    return [this] { std::memcpy(to.data(), from.data(), bytes); };
  }

  FolderItem file;
  Picture picture;
  Picture other;
  std::size_t bytes = 0;
  std::vector<std::uint8_t> from;
  std::vector<std::uint8_t> to;
};

void CodecRows(Context& c, const std::string& scratch) {
  const std::string ppm = scratch + "/peer.ppm";
  RunProgram({"djpeg", "-outfile", ppm, c.file.ShellPath()});
  const FolderItem out(scratch + "/ours.jpg");
  const std::array<EncodeImage, 1> image{{{c.picture, 0.9}}};
  const auto t =
      Fastest({[&] { (void)c.Decoded(); },
               [&] {
                 RunProgram({"djpeg", "-outfile", "/dev/null", c.file.ShellPath()});
               },
               [&] { (void)EncodeImageFile(out, "public.jpeg", image); },
               [&] {
                 RunProgram({"cjpeg", "-quality", "90", "-outfile", scratch + "/peer.jpg", ppm});
               }},
              kRounds);
  Row("decode JPEG to Picture", t[0], "djpeg to /dev/null", t[1], 1.15);
  Row("encode JPEG, quality 90", t[2], "cjpeg -quality 90", t[3], 1.15);
}

void ToneRows(Context& c, const OpenCvPeer& opencv) {
  ToneTable dark{};
  ToneTable bright{};
  for (int i = 0; i < 256; ++i) {
    dark[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(i * i / 255);
    bright[static_cast<std::size_t>(i)] =
        static_cast<std::uint8_t>(255 - (255 - i) * (255 - i) / 255);
  }
  Picture work = c.picture;
  work.Edit();
  const auto t = Fastest({[&] { kernels::ApplyToneTables(work.Edit(), ToneTables::All(dark)); },
                          [&] {
                            kernels::ApplyToneTables(work.Edit(), {dark, bright, IdentityTable()});
                          },
                          c.Copy(), [&] { opencv.Lookup(); }},
                         kRounds);
  Row("one tone table in place", t[0], "memcpy of the same bytes", t[2], 1.5);
  Row("three tone tables in place", t[1], "memcpy of the same bytes", t[2], 1.5);
  Row("one tone table in place", t[0], "OpenCV LUT, three channels", t[3], 0);
}

void ModuleRows(Context& c, const Services& services) {
  brivolantProcessorLite one(EffectRegistry(), services);
  brivolantProcessorLite five(EffectRegistry(), services);
  one.Startup();
  five.Startup();
  const auto set = [](effectModule& module, int row) {
    module.ControlValue(row, 60);
    module.Enabled(true);
  };
  set(ModuleNamed(one, "Exposure"), 0);
  for (const auto& [name, row] : {std::pair{"Brightness & Contrast", 0},
                                  {"Color Balance", 0},
                                  {"White Balance", 0},
                                  {"Exposure", 0},
                                  {"Levels", 1}}) {
    set(ModuleNamed(five, name), row);
  }
  Picture a = c.picture;
  Picture b = c.picture;
  a.Edit();
  b.Edit();
  const auto t = Fastest(
      {[&] { a = five.Process(std::move(a), {}); }, [&] { b = one.Process(std::move(b), {}); }},
      kRounds);
  Row("five tone modules in a row", t[0], "one tone module", t[1], 1.2);
}

void BlurRows(Context& c, const VipsPeer& vips, const OpenCvPeer& opencv) {
  Picture work = c.picture;
  work.Edit();
  const auto blur = [&](int radius) {
    return [&work, radius] { work = GaussianBlur(radius).ApplyEffect(std::move(work)); };
  };
  const auto t = Fastest({blur(10), blur(50), [&] { vips.Blur(5); }, [&] { vips.Blur(25); },
                          [&] { opencv.Blur(5); }, [&] { opencv.Blur(25); }},
                         3);
  Row("GaussianBlur radius 10", t[0], "vips gaussblur, same sigma", t[2], 0.5);
  Row("GaussianBlur radius 50", t[1], "vips gaussblur, same sigma", t[3], 0.5);
  Row("GaussianBlur radius 50", t[1], "GaussianBlur radius 10", t[0], 1.2);
  Row("GaussianBlur radius 10", t[0], "OpenCV GaussianBlur", t[4], 0);
  Row("GaussianBlur radius 50", t[1], "OpenCV GaussianBlur", t[5], 0);
}

void BlendRows(Context& c) {
  Picture work = c.picture;
  work.Edit();
  for (int mode = 0; mode < 16; ++mode) {
    BlendEffect blender;
    blender.BlendMode = mode;
    const auto t =
        Fastest({[&] { work = blender.Apply(std::move(work), c.other, 0.5); }, c.Copy()}, kRounds);
    Row("BlendEffect " + std::string(kBlendNames.at(static_cast<std::size_t>(mode)).English) +
            " at 0.5",
        t[0], "memcpy of the same bytes", t[1], mode < 12 ? 3 : 10);
  }
}

void GeometryRows(Context& c, const VipsPeer& vips, const OpenCvPeer& opencv) {
  using namespace SharedPictureEffects;
  Picture result;
  const auto t = Fastest(
      {[&] { result = Scale(c.picture, 1600, 1600, kScaleToFit); },
       [&] { vips.Resize(1600.0 / c.picture.Width()); }, [&] { opencv.Resize(1600, 1067); }},
      kRounds);
  Row("Scale to fit 1600 x 1600", t[0], "vips resize", t[1], 0.5);
  Row("Scale to fit 1600 x 1600", t[0], "OpenCV resize, INTER_AREA", t[2], 0);
  const auto turn = Fastest(
      {[&] { result = Rotate(c.picture, 90, kWhite, 1); }, [&] { result = Flip(c.picture, 0); },
       c.Copy(), [&] { opencv.Rotate90(); }, [&] { opencv.Flip(); }, [&] { vips.Rotate90(); }},
      kRounds);
  Row("Rotate by 90", turn[0], "memcpy of the same bytes", turn[2], 2);
  Row("Flip", turn[1], "memcpy of the same bytes", turn[2], 2);
  Row("Rotate by 90", turn[0], "OpenCV rotate, three channels", turn[3], 0);
  Row("Flip", turn[1], "OpenCV flip, three channels", turn[4], 0);
  Row("Rotate by 90", turn[0], "vips rot", turn[5], 0);
}

void StyleRows(const Services& services) {
  brivolantProcessorLite processor(EffectRegistry(), services);
  processor.Startup();
  for (int i = 0; i <= processor.Count(); ++i) processor.item(i)->Enabled(true);
  const std::string style = processor.StyleData();
  const auto t =
      Fastest({[&] { (void)processor.StyleData(style); }, [&] { processor.Reset(); }}, 50);
  Row("reading and applying style data", t[0], "one millisecond", 1, 1);
  Row("Reset", t[1], "two milliseconds", 2, 1);
}

void ProgramRows(Context& c, const std::string& cli, const std::string& scratch) {
  const std::string in = c.file.ShellPath();
  const std::string ppm = scratch + "/peer.ppm";
  std::vector<std::string> render{cli,
                                  "render",
                                  in,
                                  "-o",
                                  scratch + "/render.jpg",
                                  "--enable",
                                  "Auto Levels",
                                  "--set",
                                  "Exposure.Power=4",
                                  "--set",
                                  "Levels.Shadows=8",
                                  "--set",
                                  "Shadow & Highlight.Shadows=30",
                                  "--set",
                                  "Shadow & Highlight.Highlights=20",
                                  "--set",
                                  "Shadow & Highlight.Blur=10",
                                  "--set",
                                  "White Balance.Temperature=5500"};
  const auto t = Fastest(
      {[&] { RunProgram(render); },
       [&] {
         RunProgram({"djpeg", "-outfile", "/dev/null", in});
         RunProgram({"cjpeg", "-quality", "90", "-outfile", scratch + "/peer.jpg", ppm});
       },
       [&] {
         RunProgram({cli, "thumbnail", in, "--out-dir", scratch + "/small", "--size", "256"});
       },
       [&] {
         RunProgram({"vipsthumbnail", in, "--size", "256x256", "-o", scratch + "/tn.jpg"});
       }},
      kRounds);
  Row("whole render: decode, five modules, encode", t[0], "djpeg + cjpeg", t[1], 2);
  const auto slow = Fastest({[&] {
                              RunProgram({"gegl", in, "-o", scratch + "/gegl.jpg", "--",
                                          "gegl:gaussian-blur", "std-dev-x=5", "std-dev-y=5"});
                            }},
                            1);
  Row("whole render: decode, five modules, encode", t[0], "gegl, one gaussian-blur", slow[0], 0.1);
  const auto blurs =
      Fastest({[&] {
                 RunProgram({"convert", in, "-blur", "0x5", scratch + "/im.jpg"});
               },
               [&] {
                 RunProgram({"gm", "convert", in, "-blur", "0x5", scratch + "/gm.jpg"});
               },
               [&] {
                 RunProgram({"vips", "gaussblur", in, scratch + "/vips.jpg", "5"});
               }},
              2);
  Row("whole render: decode, five modules, encode", t[0], "ImageMagick, one blur", blurs[0], 0);
  Row("whole render: decode, five modules, encode", t[0], "GraphicsMagick, one blur", blurs[1], 0);
  Row("whole render: decode, five modules, encode", t[0], "vips, one gaussblur", blurs[2], 0);
  Row("256-pixel thumbnail", t[2], "vipsthumbnail", t[3], 1);
  constexpr double kMega = 1024 * 1024;
  const double allowed = 3.5 * static_cast<double>(c.bytes) + 60e6;
  render.emplace_back("--timing");
  Row("peak memory of that render (MiB)", PeakTold(render) / kMega, "3.5 x 4 bytes a pixel + 60 MB",
      allowed / kMega, 1);
}

}  // namespace
}  // namespace brivolant::bench

int main(int argc, char** argv) {
  using namespace brivolant;
  using namespace brivolant::bench;
  // Texts on pictures need fonts, and fonts an application.
  const QGuiApplication application(argc, argv);
  TakeSmoke(argc, argv);
  if (argc != 4) {
    std::fprintf(stderr, "usage: peer-table [--smoke] PHOTO.jpg BRIVOLANT-CLI SCRATCH-FOLDER\n");
    return 2;
  }
  Context context(argv[1]);
  const VipsPeer vips(context.picture, argv[0]);
  const OpenCvPeer opencv(context.picture);
  const QuietServices quiet;
  const Services& services = quiet.All();
  Heading();
  CodecRows(context, argv[3]);
  ToneRows(context, opencv);
  ModuleRows(context, services);
  BlurRows(context, vips, opencv);
  BlendRows(context);
  GeometryRows(context, vips, opencv);
  StyleRows(services);
  ProgramRows(context, argv[2], argv[3]);
  return 0;
}
